#pragma once

#include "platform/RecognitionVocabulary.h"
#include "platform/linux/recognition/ModelFiles.h"
#include "platform/linux/recognition/PhraseDecoder.h"

#include <memory>
#include <vector>

namespace brivandel {

/// Keeps decoders with their models, and lends them out for an utterance at a time, so that beginning a
/// session costs nothing. Any one thread at a time, the return of a decoder included.
class DecoderPool : public std::enable_shared_from_this<DecoderPool> {
public:
    explicit DecoderPool(ModelFiles files) : files_(std::move(files)) {}

    /// A decoder for that vocabulary, returned when the last pointer goes. Null when the model cannot be
    /// loaded. Costs time only for the first of all, and for the first of a vocabulary.
    [[nodiscard]] std::shared_ptr<UtteranceDecoder> lend(const RecognitionVocabulary& vocabulary);
    /// Does what can be done ahead of lending.
    void prepare(const RecognitionVocabulary& vocabulary);

private:
    std::shared_ptr<const CompiledVocabulary> compiled(const RecognitionVocabulary& vocabulary);
    std::unique_ptr<PhraseDecoder> takeIdle(const std::shared_ptr<const CompiledVocabulary>& vocabulary);

    ModelFiles files_;
    std::vector<std::unique_ptr<PhraseDecoder>> idle_;
    /// The vocabulary that was asked for last.
    std::shared_ptr<const CompiledVocabulary> compiled_;
};

} // namespace brivandel
