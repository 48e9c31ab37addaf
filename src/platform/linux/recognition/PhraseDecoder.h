#pragma once

#include "platform/linux/recognition/CompiledVocabulary.h"
#include "platform/linux/recognition/Decoder.h"
#include "platform/linux/recognition/UtteranceDecoder.h"

#include <memory>
#include <vector>

namespace brivandel {

/// Understands utterances with two kinds of decoders. The gate knows the phrases and 2,000 words besides, and
/// says where the wake phrase is; the grammar can hear nothing but phrases, and says which. Either alone
/// fails: the first misses phrases in noise, the second makes a command of every sentence. Where both hear
/// the same words, that was said. Where they do not, the end of the utterance decides by how much worse the
/// grammar's words fit the sound than the best of any words, which a third decoder, the reference, finds.
class PhraseDecoder final : public UtteranceDecoder {
public:
    /// None when the model cannot be loaded, which ModelFiles::problem() explains. Some 50 ms.
    [[nodiscard]] static std::unique_ptr<PhraseDecoder> load(const ModelFiles& files);

    /// Between utterances. False when the engine refuses it: nothing is understood then.
    [[nodiscard]] bool setVocabulary(std::shared_ptr<const CompiledVocabulary> vocabulary);
    /// None at first.
    [[nodiscard]] const std::shared_ptr<const CompiledVocabulary>& vocabulary() const { return vocabulary_; }

    void begin(Expecting expecting) override;
    void process(std::span<const std::int16_t> samples) override;
    [[nodiscard]] std::optional<Reading> interim() override;
    [[nodiscard]] bool isPromising() const override;
    [[nodiscard]] Conclusion conclude() override;

private:
    PhraseDecoder() = default;

    void beginGate();
    [[nodiscard]] std::vector<HeardSegment> heardByGate();

    /// What is for us among what the gate heard; empty when nothing is.
    struct Addressed {
        QStringList words;
        AudioTime begin{0};
    };
    [[nodiscard]] Addressed addressed(const std::vector<HeardSegment>& heard) const;
    [[nodiscard]] std::vector<HeardSegment> decodeByGrammar(const QStringList& saidWords,
                                                            std::span<const std::int16_t> sound);
    /// phrase is what the grammar makes of the sound.
    [[nodiscard]] Conclusion judge(const std::vector<HeardSegment>& phrase,
                                   std::span<const std::int16_t> sound);
    [[nodiscard]] bool mayLackFirstWord(const std::vector<HeardSegment>& phrase,
                                        std::span<const std::int16_t> sound) const;
    /// Of two commands, one of which the grammar heard and would be carried out, the one that the reference
    /// heard, which knows the phrases and much else. None where that is the same, or only its beginning.
    [[nodiscard]] std::optional<Reading> otherCommand(const Reading& reading, const QStringList& heard) const;
    [[nodiscard]] bool isHeardByGrammar(const Addressed& said);
    /// How the phrase stands out from those that sound nearly the same.
    [[nodiscard]] double distinction(std::span<const std::int16_t> sound,
                                     std::span<const HeardSegment> phrase);
    [[nodiscard]] bool isBrokenOff(const Addressed& said);
    [[nodiscard]] std::optional<Reading> wakePhraseOf(const QStringList& words) const;
    [[nodiscard]] std::span<const std::int16_t> soundSince(AudioTime begin) const;

    std::unique_ptr<Decoder> gate_;
    std::unique_ptr<Decoder> grammar_;
    std::unique_ptr<Decoder> reference_;
    std::shared_ptr<const CompiledVocabulary> vocabulary_;

    Expecting expecting_ = Expecting::WakePhrase;
    std::vector<std::int16_t> utterance_;
    bool gateHasBegun_ = false;
    /// What the gate had heard when the grammar was last asked in this utterance, and what came of it.
    QStringList askedFor_;
    std::optional<Reading> answer_;
};

} // namespace brivandel
