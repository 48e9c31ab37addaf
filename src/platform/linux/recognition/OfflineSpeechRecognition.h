#pragma once

#include "platform/SpeechRecognition.h"
#include "platform/linux/recognition/ModelFiles.h"
#include "platform/linux/recognition/RecognizerThread.h"

#include <memory>

namespace brivandel {

/// Recognition of sound that is being captured, on a thread of its own and on this machine alone. The models
/// are loaded when the first recogniser is made, and kept. Destroyed after its recognisers, requests may
/// outlive it; no handler runs once it is gone.
class OfflineSpeechRecognition final : public SpeechRecognition {
public:
    explicit OfflineSpeechRecognition(ModelFiles files = ModelFiles::locate(),
                                      RecognizerThread::Clock clock = MainQueue::Clock::now);

    /// None for other languages than American English, and when the model is missing.
    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override;
    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override;

private:
    RecognizerThread& thread();

    ModelFiles files_;
    RecognizerThread::Clock clock_;
    std::unique_ptr<RecognizerThread> thread_;
};

} // namespace brivandel
