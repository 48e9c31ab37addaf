#pragma once

#include "platform/linux/keys/KeySender.h"
#include "platform/linux/keys/X11Connection.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace brivandel::x11 {

/// Whose a window is.
struct WindowOwner {
    xcb_window_t window = XCB_NONE;
    /// On this machine; 0 when that is not known.
    qint64 pid = 0;
    /// What runs there: the process's own name and the name of its file. Empty when that is not known.
    QByteArray comm;
    QByteArray executable;
    /// WM_CLASS: the instance's name and the program's class.
    QByteArray instanceName;
    QByteArray className;
    xcb_window_t clientLeader = XCB_NONE;

    /// What a person calls the program.
    [[nodiscard]] QString programName() const;
};

/// The windows of programs: who owns them, which of them has the keyboard focus.
class Windows {
public:
    explicit Windows(Connection& connection) : connection_(connection) {}

    /// The topmost window of the program. A process that bears the name goes before a WM_CLASS that does.
    [[nodiscard]] std::optional<WindowOwner> find(const TargetName& name) const;
    /// The topmost window that the target has now; it may differ from the one it was found by, which may be
    /// gone.
    [[nodiscard]] xcb_window_t topmostWindow(const WindowOwner& target) const;

    /// The program window that has the keyboard focus; None when no window has.
    [[nodiscard]] xcb_window_t focusedWindow() const;
    /// Whether a window is one of the target's: of its process, of its group of windows, or a dialog of one
    /// of these.
    [[nodiscard]] bool belongsTo(xcb_window_t window, const WindowOwner& target) const;

    /// The topmost window of the target that has to be answered before its others take any key; None when
    /// there is none.
    [[nodiscard]] xcb_window_t modalWindow(const WindowOwner& target) const;
    /// The same process, or without one the same window or group of windows.
    [[nodiscard]] static bool isSameProgram(const WindowOwner& owner, const WindowOwner& target);

    [[nodiscard]] WindowOwner ownerOf(xcb_window_t window) const;
    [[nodiscard]] QString titleOf(xcb_window_t window) const;
    /// None without a window manager.
    [[nodiscard]] std::optional<QString> windowManagerName() const;
    [[nodiscard]] bool exists(xcb_window_t window) const;

private:
    /// Top of the stack first.
    [[nodiscard]] std::vector<xcb_window_t> programWindows() const;
    [[nodiscard]] bool isForUse(xcb_window_t window) const;
    [[nodiscard]] bool isModal(xcb_window_t window) const;
    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    [[nodiscard]] xcb_window_t programWindowAround(xcb_window_t window) const;
    [[nodiscard]] qint64 pidOf(xcb_window_t window) const;

    Connection& connection_;
};

} // namespace brivandel::x11
