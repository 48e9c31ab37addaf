#pragma once

#include "platform/SpeechRecognition.h"
#include "platform/linux/recognition/ModelFiles.h"

#include <memory>

namespace brivandel {

class DecoderPool;

/// Recognition on the caller's thread, as fast as the sound is appended: for files. append() decodes at once
/// and calls the handler before it returns, so the same sound always gives the same results in the same
/// calls. Everything happens on one thread. Recognisers share the loaded models.
class InlineSpeechRecognition final : public SpeechRecognition {
public:
    explicit InlineSpeechRecognition(ModelFiles files = ModelFiles::locate());
    ~InlineSpeechRecognition() override;
    Q_DISABLE_COPY_MOVE(InlineSpeechRecognition)

    /// None for other languages than American English, and when the model is missing.
    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override;
    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override;

private:
    ModelFiles files_;
    std::shared_ptr<DecoderPool> pool_;
};

} // namespace brivandel
