#pragma once

#include "platform/Beeper.h"
#include "platform/DiagnosticLog.h"
#include "platform/Notifier.h"
#include "platform/Permissions.h"

namespace brivandel {

/// For runs that show their events and nothing else: every permission is given, and no sound, note or log
/// line leaves.
class SilentServices final : public Permissions, public Notifier, public Beeper, public DiagnosticLog {
public:
    void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) override {
        answer(SpeechAuthorization::Authorized);
    }
    void requestMicrophoneAccess(std::function<void(bool)> answer) override { answer(true); }
    void requestNotificationAuthorization() override {}
    void deliver(const Notification& /*notification*/) override {}
    void beep() override {}
    void write(const QString& /*message*/) override {}
};

} // namespace brivandel
