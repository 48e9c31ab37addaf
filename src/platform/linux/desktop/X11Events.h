#pragma once

#include <QObject>
#include <QPoint>

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>

class QSocketNotifier;

namespace brivandel {

/// What happens on the X display outside this program's windows, over a connection of its own: presses of the
/// pointer's buttons, trays of the older kind that come and go. Main thread.
class X11Events final : public QObject {
    Q_OBJECT
public:
    /// Without a display it tells nothing.
    X11Events();
    ~X11Events() override;

    /// Whether a tray owns the display's tray selection now.
    [[nodiscard]] bool hasTray() const;
    /// Whether pressed() is emitted; false where the server cannot tell (no XInput 2).
    [[nodiscard]] bool knowsPresses() const { return inputOpcode_ != 0; }
    void watchPresses(bool watch);

Q_SIGNALS:
    void pressed(QPoint place);
    void trayChanged();

private:
    void read();
    void handle(const xcb_generic_event_t& event);
    void followTray();
    void prepareInput();

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    xcb_atom_t traySelection_ = XCB_ATOM_NONE;
    xcb_atom_t managerMessage_ = XCB_ATOM_NONE;
    xcb_window_t tray_ = XCB_WINDOW_NONE;
    std::uint8_t inputOpcode_ = 0;
    QSocketNotifier* notifier_ = nullptr;
};

} // namespace brivandel
