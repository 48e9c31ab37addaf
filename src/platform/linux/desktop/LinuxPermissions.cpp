#include "platform/linux/desktop/LinuxPermissions.h"

#include <utility>

namespace brivandel {

LinuxPermissions::LinuxPermissions(DiagnosticLog& log, SpeechProblem speechProblem,
                                   HasMicrophone hasMicrophone)
    : log_(log)
    , speechProblem_(std::move(speechProblem))
    , hasMicrophone_(std::move(hasMicrophone)) {}

LinuxPermissions::~LinuxPermissions() = default;

void LinuxPermissions::requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) {
    questions_.emplace_back([this, answer = std::move(answer)] {
        const auto problem = speechProblem_();
        if (problem) {
            log_.write(QStringLiteral("Speech recognition restricted: ") + *problem);
        }
        answer(problem ? SpeechAuthorization::Restricted : SpeechAuthorization::Authorized);
    });
}

void LinuxPermissions::requestMicrophoneAccess(std::function<void(bool granted)> answer) {
    questions_.emplace_back([this, answer = std::move(answer)] {
        const bool hasMicrophone = hasMicrophone_();
        if (!hasMicrophone) {
            log_.write(
                QStringLiteral("No microphone: the sound server offers none, or there is no sound server"));
        }
        answer(hasMicrophone);
    });
}

void LinuxPermissions::requestNotificationAuthorization() {}

} // namespace brivandel
