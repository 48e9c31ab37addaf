#pragma once

#include "platform/DiagnosticLog.h"
#include "platform/Permissions.h"

#include <QString>

#include <functional>
#include <optional>
#include <thread>
#include <vector>

namespace brivandel {

/// A Linux desktop asks nobody for leave, so the answers tell what works: speech is authorized when the
/// recogniser can work, else restricted, with the reason in the log; the microphone is granted when there is
/// one.
class LinuxPermissions final : public Permissions {
public:
    /// What keeps the recogniser from working, naming the file; none when nothing does. On a thread of its
    /// own; may take its time.
    using SpeechProblem = std::function<std::optional<QString>()>;
    /// Likewise.
    using HasMicrophone = std::function<bool()>;

    LinuxPermissions(DiagnosticLog& log, SpeechProblem speechProblem, HasMicrophone hasMicrophone);
    /// Waits for the questions that are being answered.
    ~LinuxPermissions() override;

    void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) override;
    void requestMicrophoneAccess(std::function<void(bool granted)> answer) override;
    /// Nothing to do: every program may notify.
    void requestNotificationAuthorization() override;

private:
    DiagnosticLog& log_;
    SpeechProblem speechProblem_;
    HasMicrophone hasMicrophone_;
    /// Two in the life of the program.
    std::vector<std::jthread> questions_;
};

} // namespace brivandel
