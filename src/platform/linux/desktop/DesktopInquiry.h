#pragma once

#include <QString>

#include <chrono>
#include <optional>

namespace brivandel {

/// What a desktop offers over its session bus, for a person who wants to know why something does not show.
struct DesktopInquiry {
    /// Why the session bus cannot be asked; none when it can.
    std::optional<QString> busProblem;
    /// Name and version of the notification service; none when there is none and the bus cannot start one.
    std::optional<QString> notificationService;
    /// Whether a panel that shows status items has registered (org.kde.StatusNotifierWatcher). A tray of the
    /// older kind lives in the X server and is not seen here.
    bool hasStatusItemHost = false;
};

/// Asks, and waits for each answer as long as the patience. Any thread; not for the main thread of a running
/// window.
[[nodiscard]] DesktopInquiry inquireDesktop(std::chrono::milliseconds patience = std::chrono::seconds(2));

} // namespace brivandel
