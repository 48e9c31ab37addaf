#pragma once

#include "platform/linux/keys/KeySender.h"
#include "platform/linux/keys/X11Reply.h"
#include "platform/linux/keys/X11Watchdog.h"

#include <QByteArray>
#include <QString>

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace brivandel::x11 {

/// The names that window managers and programs talk in.
enum class Atom : std::uint8_t {
    NetActiveWindow,
    NetClientListStacking,
    NetSupportingWmCheck,
    NetWmName,
    NetWmPid,
    NetWmPing,
    NetWmState,
    NetWmStateModal,
    NetWmWindowType,
    NetWmWindowTypeDesktop,
    NetWmWindowTypeDock,
    NetWmWindowTypeNotification,
    Utf8String,
    WmClientLeader,
    WmClientMachine,
    WmProtocols,
    WmState,
    Count,
};

/// A connection to the X display, with the extensions that sending keys needs. One thread at a time.
class Connection {
public:
    using Deadline = KeySession::Deadline;

    /// display: as in the environment's DISPLAY, which an empty text stands for.
    [[nodiscard]] static std::variant<std::unique_ptr<Connection>, KeyFailure> open(const QByteArray& display,
                                                                                    Deadline deadline);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] xcb_connection_t* xcb() const { return connection_.get(); }
    [[nodiscard]] xcb_window_t root() const { return root_; }
    [[nodiscard]] xcb_atom_t atom(Atom name) const { return atoms_[static_cast<std::size_t>(name)]; }
    [[nodiscard]] bool hasXTest() const { return hasXTest_; }

    /// While one of these lives, every call on the connection ends by that deadline, if need be by losing it.
    class Bound {
    public:
        Bound(Connection& connection, Deadline deadline);
        ~Bound();
        Bound(const Bound&) = delete;
        Bound& operator=(const Bound&) = delete;

    private:
        Watchdog& watchdog_;
    };

    /// Nothing can be asked or sent any more; why, as a failure.
    [[nodiscard]] std::optional<KeyFailure> lost(Deadline deadline) const;

    /// The next event, null when none came by then. Keyboard changes are noted on the way and not handed out.
    [[nodiscard]] Event waitForEvent(Deadline deadline);
    /// Takes note of what has arrived; events that nobody waits for are dropped.
    void drainEvents();
    /// Whether the keyboard's mapping changed since the last call, as far as events have been taken note of.
    [[nodiscard]] bool takeKeymapChange();

    /// The 32-bit items of a property; empty when the window or the property is not there.
    [[nodiscard]] std::vector<std::uint32_t> property32(xcb_window_t window, xcb_atom_t property,
                                                        std::uint32_t maxItemCount = 1) const;
    /// The bytes of a property, at most 1024 of them: no name of a program or title needs more to be
    /// recognised.
    [[nodiscard]] QByteArray propertyBytes(xcb_window_t window, xcb_atom_t property) const;

    /// Answers when the server has carried out everything before it.
    void sync() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Handle = std::unique_ptr<xcb_connection_t, Disconnect>;

    explicit Connection(Handle connection);
    [[nodiscard]] static std::optional<std::pair<Handle, int>> connectBy(const QByteArray& display,
                                                                         Deadline deadline);
    [[nodiscard]] bool setUp(int screenIndex);
    void internAtoms();
    void selectKeyboardEvents() const;
    [[nodiscard]] bool noteKeyboardChange(const xcb_generic_event_t& event);

    Handle connection_;
    xcb_window_t root_ = XCB_NONE;
    std::array<xcb_atom_t, static_cast<std::size_t>(Atom::Count)> atoms_{};
    bool hasXTest_ = false;
    std::uint8_t xkbFirstEvent_ = 0;
    bool keymapChanged_ = false;
    Watchdog watchdog_;
};

} // namespace brivandel::x11
