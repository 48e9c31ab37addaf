#include "platform/linux/recognition/DecoderPool.h"

#include <algorithm>
#include <utility>

namespace brivandel {

std::shared_ptr<const CompiledVocabulary> DecoderPool::compiled(const RecognitionVocabulary& vocabulary) {
    if (!compiled_ || compiled_->source != vocabulary) {
        compiled_ = CompiledVocabulary::compile(vocabulary, files_.dictionary);
    }
    return compiled_;
}

std::unique_ptr<PhraseDecoder>
DecoderPool::takeIdle(const std::shared_ptr<const CompiledVocabulary>& vocabulary) {
    if (idle_.empty()) {
        return PhraseDecoder::load(files_);
    }
    const auto ready =
        std::ranges::find(idle_, vocabulary, [](const auto& decoder) { return decoder->vocabulary(); });
    const auto chosen = ready != idle_.end() ? ready : idle_.begin();
    std::unique_ptr<PhraseDecoder> decoder = std::move(*chosen);
    idle_.erase(chosen);
    return decoder;
}

std::shared_ptr<UtteranceDecoder> DecoderPool::lend(const RecognitionVocabulary& vocabulary) {
    const auto wanted = compiled(vocabulary);
    std::unique_ptr<PhraseDecoder> decoder = takeIdle(wanted);
    if (!decoder || (decoder->vocabulary() != wanted && !decoder->setVocabulary(wanted))) {
        return nullptr;
    }
    return {decoder.release(), [pool = weak_from_this()](PhraseDecoder* returned) {
                std::unique_ptr<PhraseDecoder> owned(returned);
                if (const auto there = pool.lock()) {
                    there->idle_.push_back(std::move(owned));
                }
            }};
}

void DecoderPool::prepare(const RecognitionVocabulary& vocabulary) {
    // Lent and returned at once, it is idle and has the vocabulary.
    static_cast<void>(lend(vocabulary));
}

} // namespace brivandel
