#include "platform/linux/keys/X11Activation.h"

#include <algorithm>

namespace brivandel::x11 {

namespace {

/// In the message that asks for a window to be activated: who asks is not a program for itself but a tool of
/// the user.
constexpr std::uint32_t sourceIsUserTool = 2;

/// Events of a window for as long as this lives.
class WatchedWindow {
public:
    WatchedWindow(xcb_connection_t* xcb, xcb_window_t window, std::uint32_t events)
        : xcb_(xcb)
        , window_(window) {
        select(events);
    }
    ~WatchedWindow() { select(XCB_EVENT_MASK_NO_EVENT); }
    WatchedWindow(const WatchedWindow&) = delete;
    WatchedWindow& operator=(const WatchedWindow&) = delete;

private:
    void select(std::uint32_t events) const {
        xcb_change_window_attributes(xcb_, window_, XCB_CW_EVENT_MASK, &events);
    }

    xcb_connection_t* xcb_;
    xcb_window_t window_;
};

} // namespace

std::optional<KeyFailure> Activation::bringToFront(const WindowOwner& target,
                                                   Connection::Deadline deadline) const {
    if (hasFocus(target)) {
        return std::nullopt;
    }
    const xcb_window_t window = windows_.topmostWindow(target);
    if (window == XCB_NONE) {
        return KeyFailure{KeyFailure::Kind::NotRunning, {}};
    }
    // Watched before it is asked for, so that no answer can be missed.
    const WatchedWindow root(connection_.xcb(), connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    const WatchedWindow watched(connection_.xcb(), window,
                                XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    xcb_map_window(connection_.xcb(), window);
    if (windows_.windowManagerName()) {
        askWindowManager(window);
    } else {
        takeFocus(window);
    }
    return waitForFocus(target, window, std::min(deadline, std::chrono::steady_clock::now() + patience));
}

bool Activation::hasFocus(const WindowOwner& target) const {
    const xcb_window_t focused = windows_.focusedWindow();
    return focused != XCB_NONE && windows_.belongsTo(focused, target);
}

std::optional<KeyFailure> Activation::waitForFocus(const WindowOwner& target, xcb_window_t window,
                                                   Connection::Deadline deadline) const {
    while (!hasFocus(target)) {
        if (!windows_.exists(window)) {
            return KeyFailure{KeyFailure::Kind::NotRunning, {}};
        }
        if (connection_.waitForEvent(deadline) == nullptr) {
            return KeyFailure{KeyFailure::Kind::TimedOut,
                              QStringLiteral("%1 did not come to the front.").arg(target.programName())};
        }
    }
    return std::nullopt;
}

void Activation::askWindowManager(xcb_window_t window) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = connection_.atom(Atom::NetActiveWindow);
    message.data.data32[0] = sourceIsUserTool;
    message.data.data32[1] = XCB_CURRENT_TIME;
    static_assert(sizeof message == 32, "what the protocol sends");
    xcb_send_event(connection_.xcb(), 0, connection_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
}

/// Without a window manager a program has to do it itself.
void Activation::takeFocus(xcb_window_t window) const {
    constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_.xcb(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(connection_.xcb(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
}

} // namespace brivandel::x11
