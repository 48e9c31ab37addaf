#pragma once

#include "platform/MainQueue.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace brivandel {

class DiagnosticLog;
class Notifier;

/// What the monitor reads when it arms itself and when it fires.
struct IdleSettings {
    std::int64_t timeoutMinutes = 30; ///< less than 1 switches the monitor off
    bool autoDisable = true;
    bool reminderEnabled = true;
};

/// Notices that no command has come for a while, and then reminds the user, asks for listening to be switched
/// off, or both. It does not arm itself again: the next reminder needs a command or a new switch-on first.
/// Main thread.
class IdleMonitor {
public:
    /// isListening and settings are asked when the timer fires; disable switches listening off.
    struct Controls {
        std::function<bool()> isListening;
        std::function<IdleSettings()> settings;
        std::function<void()> disable;
    };

    IdleMonitor(MainQueue& mainQueue, Notifier& notifier, DiagnosticLog& log, Controls controls);

    /// Something happened: the countdown starts anew, with the settings as they are now.
    void reset();
    void invalidate();

private:
    void handleTimeout();
    void sendNotification(const IdleSettings& settings);

    MainQueue& mainQueue_;
    Notifier& notifier_;
    DiagnosticLog& log_;
    Controls controls_;
    std::unique_ptr<Timer> timer_;
};

} // namespace brivandel
