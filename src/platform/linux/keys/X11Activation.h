#pragma once

#include "platform/linux/keys/KeySender.h"
#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11Windows.h"

#include <chrono>
#include <optional>

namespace brivandel::x11 {

/// Brings windows to the front, and waits until they are there.
class Activation {
public:
    /// Two hundred times what a window manager was seen to take; a program that is slower is swapped out or
    /// stuck.
    static constexpr std::chrono::seconds patience{2};

    Activation(Connection& connection, const Windows& windows) : connection_(connection), windows_(windows) {}

    /// Returns when a window of the target has the keyboard focus. Minimised windows are shown again.
    [[nodiscard]] std::optional<KeyFailure> bringToFront(const WindowOwner& target,
                                                         Connection::Deadline deadline) const;

private:
    [[nodiscard]] bool hasFocus(const WindowOwner& target) const;
    [[nodiscard]] std::optional<KeyFailure> waitForFocus(const WindowOwner& target, xcb_window_t window,
                                                         Connection::Deadline deadline) const;
    void askWindowManager(xcb_window_t window) const;
    void takeFocus(xcb_window_t window) const;

    Connection& connection_;
    const Windows& windows_;
};

} // namespace brivandel::x11
