#pragma once

#include "platform/linux/recognition/CompiledVocabulary.h"
#include "platform/linux/recognition/Decoder.h"
#include "platform/linux/recognition/Evidence.h"
#include "platform/linux/recognition/FrontEnd.h"
#include "platform/linux/recognition/UtteranceDecoder.h"

#include <array>
#include <memory>
#include <span>
#include <tuple>
#include <vector>

namespace brivandel {

/// Says of sound that is there as a whole which phrase was said in it, if any. The grammar can hear nothing
/// but phrases, so it makes one of everything; the reference hears any words. By how much worse the phrase
/// fits than those words, it was said or it was not.
///
/// A speaker who is larger or smaller than those of the model's training fits badly, whatever he says. So
/// what is not proven is heard again as if he were one of them, and the same phrase must come of it.
///
/// Any one thread at a time.
class PhraseJudge {
public:
    /// By how much the resonances of each speaker are higher than in the model's training. The first is asked
    /// first.
    using Resonances = std::array<double, 3>;
    /// Of 120 commands by formant voices of Britain 54 were understood without the second and the third, 78
    /// with 3.5 %, 77 with 5 %, 68 with 8 % and 67 with 12 %, before the variance was limited. Two of each
    /// were wrong.
    static constexpr Resonances usualResonances = {1, 0.96, 1.04};

    /// None when the model cannot be loaded, which ModelFiles::problem() explains. Some 40 ms.
    [[nodiscard]] static std::unique_ptr<PhraseJudge> load(const ModelFiles& files,
                                                           const Resonances& resonances = usualResonances);

    /// Replaces the vocabulary. False when the engine refuses it: nothing may be asked then.
    [[nodiscard]] bool setVocabulary(std::shared_ptr<const CompiledVocabulary> vocabulary);

    struct Question {
        std::span<const std::int16_t> sound;
        /// Where in its utterance the sound begins.
        AudioTime begin{0};
        /// What the utterance may begin with.
        Expecting expecting = Expecting::WakePhrase;
        /// The gate heard the wake phrase where the sound begins.
        bool hasWakePhrase = false;
    };

    /// Whether the grammar hears these words, and they stand out from those that sound nearly the same.
    [[nodiscard]] bool confirms(const QStringList& words, const Question& question);
    /// What is for us among what the reference hears.
    [[nodiscard]] QStringList heardAmongAllWords(const Question& question);
    /// The reading has no more than the wake phrase where that alone is proven, and there is no verdict where
    /// the sound came near no phrase.
    [[nodiscard]] Conclusion judge(const Question& question);

private:
    PhraseJudge() = default;

    /// What the grammar makes of the sound, or of the part of it that has the words.
    struct Take {
        Question question;
        Features features;
        std::vector<HeardSegment> phrase = {};
    };
    [[nodiscard]] Take take(FrontEnd& speaker, const Question& question);
    [[nodiscard]] std::vector<HeardSegment> hearPhrase(const Features& features, const Question& question);
    /// What comes of one take.
    struct Judgement {
        Conclusion conclusion;
        /// The phrase was near, but did not fit: it may if another speaker said it.
        bool isOpen = false;
    };
    [[nodiscard]] Judgement weigh(const Take& take);
    [[nodiscard]] bool mayLackFirstWord(const std::vector<HeardSegment>& phrase,
                                        const Question& question) const;
    /// Of two commands, one of which the grammar heard and would be carried out, the one that the reference
    /// heard, which knows the phrases and much else. None where that is the same, or only its beginning, or
    /// sounds like it.
    [[nodiscard]] std::optional<Reading> otherCommand(const QStringList& words,
                                                      const QStringList& heard) const;
    [[nodiscard]] QList<QStringList> soundAlikesOf(const QStringList& words) const;
    /// A phrase beside those that sound nearly the same, for speakers of all sizes: where one phone parts two
    /// phrases, a throat of another size is enough to take one for the other.
    struct Comparison {
        /// By how much the phrase stands out, as the mean of the speakers; below 0 others do.
        double distinction = Evidence().distinction;
        /// The one other that does, for most speakers; none when there is none, or several.
        QStringList other = {};
    };
    [[nodiscard]] Comparison compare(const QStringList& words, std::span<const std::int16_t> sound);
    /// One that can hear nothing but these.
    [[nodiscard]] bool addGrammar(const QString& search, const QList<QStringList>& phrases);

    std::array<std::unique_ptr<FrontEnd>, std::tuple_size_v<Resonances>> speakers_;
    std::unique_ptr<Decoder> grammar_;
    std::unique_ptr<Decoder> reference_;
    std::shared_ptr<const CompiledVocabulary> vocabulary_;
};

} // namespace brivandel
