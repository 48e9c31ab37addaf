#pragma once

#include "platform/linux/recognition/CompiledVocabulary.h"
#include "platform/linux/recognition/Decoder.h"
#include "platform/linux/recognition/PhraseJudge.h"
#include "platform/linux/recognition/UtteranceDecoder.h"

#include <memory>
#include <vector>

namespace brivandel {

/// Understands utterances with two kinds of decoders. The gate knows the phrases and 2,000 words besides, and
/// says while somebody speaks where the wake phrase is; the judge's grammar can hear nothing but phrases, and
/// says which. Either alone fails: the first misses phrases in noise, the second makes a command of every
/// sentence. Where both hear the same words, that was said. Where they do not, the judge weighs the utterance
/// as a whole.
class PhraseDecoder final : public UtteranceDecoder {
public:
    /// None when the model cannot be loaded, which ModelFiles::problem() explains. Some 50 ms.
    [[nodiscard]] static std::unique_ptr<PhraseDecoder> load(const ModelFiles& files);

    /// Between utterances. False when the engine refuses it: nothing is understood then.
    [[nodiscard]] bool setVocabulary(std::shared_ptr<const CompiledVocabulary> vocabulary);
    /// None at first.
    [[nodiscard]] const std::shared_ptr<const CompiledVocabulary>& vocabulary() const { return vocabulary_; }

    void begin(Expecting expecting) override;
    void process(const HeardSound& sound) override;
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
    [[nodiscard]] bool isBrokenOff(const Addressed& said);
    [[nodiscard]] PhraseJudge::Question questionAbout(const Addressed& said) const;

    std::unique_ptr<Decoder> gate_;
    std::unique_ptr<PhraseJudge> judge_;
    std::shared_ptr<const CompiledVocabulary> vocabulary_;

    Expecting expecting_ = Expecting::WakePhrase;
    /// What was heard until the gate began.
    HeardSound opening_;
    /// From then on, with the opening: the one of the two that is better understood.
    std::vector<std::int16_t> utterance_;
    bool isInSteadyNoise_ = false;
    bool gateHasBegun_ = false;
    /// What the gate had heard when the judge was last asked in this utterance, and what came of it.
    QStringList askedFor_;
    std::optional<Reading> answer_;
};

} // namespace brivandel
