#include "listening/IdleMonitor.h"

#include "platform/DiagnosticLog.h"
#include "platform/Notifier.h"

#include <QString>

#include <algorithm>
#include <chrono>
#include <utility>

namespace brivandel {

namespace {

// A stored number may be anything; beyond this the milliseconds of a timer would overflow, and nobody waits
// so long.
constexpr std::int64_t longestTimeoutMinutes = std::int64_t{100} * 365 * 24 * 60;

} // namespace

IdleMonitor::IdleMonitor(MainQueue& mainQueue, Notifier& notifier, DiagnosticLog& log, Controls controls)
    : mainQueue_(mainQueue)
    , notifier_(notifier)
    , log_(log)
    , controls_(std::move(controls)) {}

void IdleMonitor::reset() {
    invalidate();
    const IdleSettings settings = controls_.settings();
    if (settings.timeoutMinutes < 1 || (!settings.reminderEnabled && !settings.autoDisable)) {
        return;
    }
    const std::chrono::minutes timeout{std::min(settings.timeoutMinutes, longestTimeoutMinutes)};
    timer_ = mainQueue_.startTimer(timeout, [this] {
        if (controls_.isListening()) {
            handleTimeout();
        }
    });
}

void IdleMonitor::invalidate() {
    if (timer_) {
        timer_->invalidate();
    }
}

void IdleMonitor::handleTimeout() {
    const IdleSettings settings = controls_.settings();
    log_.write(QStringLiteral("Idle timeout reached (%1 min)").arg(settings.timeoutMinutes));
    // The reminder goes first: its text says already that listening was switched off.
    if (settings.reminderEnabled) {
        sendNotification(settings);
    }
    if (settings.autoDisable) {
        log_.write(QStringLiteral("Auto-disabling due to idle timeout"));
        controls_.disable();
    }
}

void IdleMonitor::sendNotification(const IdleSettings& settings) {
    const QString body =
        settings.autoDisable
            ? QStringLiteral("Voice control was disabled after %1 minutes of inactivity.")
            : QStringLiteral("Voice control is still listening. No commands received for %1 minutes.");
    const std::chrono::duration<double> sinceEpoch = mainQueue_.wallTime().time_since_epoch();
    notifier_.deliver({
        .identifier = QStringLiteral("idle-") + QString::number(sinceEpoch.count(), 'f', 6),
        .title = QStringLiteral("Brivandel"),
        .body = body.arg(settings.timeoutMinutes),
    });
}

} // namespace brivandel
