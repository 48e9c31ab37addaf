#pragma once

#include "platform/SpeechRecognition.h"

#include <chrono>
#include <memory>

namespace brivandel {

/// Makes a recogniser that works in the background one for sound that is there already: what it has heard is
/// delivered on the caller's thread while sound is appended, and the end of the sound waits for the rest.
/// Results come later than they would from a recogniser that keeps pace with the file. Any thread, one at a
/// time.
class FileSpeechRecognition final : public SpeechRecognition {
public:
    /// Recognition over a network answers within a few seconds, or not at all.
    static constexpr std::chrono::milliseconds defaultPatience = std::chrono::seconds(60);

    /// patience: how long the end of the sound is waited for; then the session ends with an error.
    explicit FileSpeechRecognition(std::unique_ptr<SpeechRecognition> background,
                                   std::chrono::milliseconds patience = defaultPatience);

    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override;
    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override;

private:
    std::unique_ptr<SpeechRecognition> background_;
    std::chrono::milliseconds patience_;
};

} // namespace brivandel
