#pragma once

#include "platform/linux/recognition/Decoder.h"

#include <QString>

#include <cstdint>
#include <span>

namespace brivandel {

/// Whether the reference has the words of the phrase in a row.
enum class Agreement : std::uint8_t {
    None,
    /// All but the first of the wake phrase: "the logic", for who swallows the "hey".
    ButForTheFirstWord,
    /// What follows them may be music, unless more words would make another phrase, or the command stands
    /// alone.
    Whole,
};

/// How much worse a phrase fits the sound than the best that any words would give, as the mean over frames of
/// a logarithm: near 0 when the phrase was said, far below when something else was. Each in the engine's
/// units.
struct Evidence {
    double ofAll = 0;
    /// Of the worst word of the wake phrase: "the logic" is half right, and "hey logic" only where all that
    /// follows was surely said.
    double ofWakePhrase = 0;
    double ofCommand = 0;
    double ofWorstCommandWord = 0;
    /// Of the frames that have words in the reference, how many have words in the phrase: a phrase can pass
    /// over speech as noise. None when there are no words in the reference.
    double coverage = 1;
    /// How many more words the reference has.
    qsizetype surplusWords = 0;
    Agreement agreement = Agreement::None;
    /// By how much better the phrase fits than those that sound nearly the same, for each frame of the word
    /// that parts them: small when the sound would do for either. Large where nothing sounds the same.
    double distinction = 1000;
    /// What is asked for. Of 480 times "on", "off", "start recording" and "stop recording" by synthetic
    /// voices, three quarters of them quiet, in an echo or in noise, 17 were taken for the other without this
    /// and 8 with it, and 456 and 448 were right.
    static constexpr double leastDistinction = 2.5;
    /// The phrase has no wake phrase before it.
    bool commandAlone = false;
    /// How much worse a command alone fits than any phones in any order: of the whole sound or of its words,
    /// whichever is less. Music fits words badly, those of the reference too, and phones better. Large where
    /// that was not asked.
    double amongPhones = 1000;

    struct Shape {
        /// So many of the first words are the wake phrase.
        qsizetype wakeWordCount = 0;
        /// More words would make another phrase of it.
        bool mayGoOn = false;
        /// The wake phrase begins the utterance, and with a word so short that it may be swallowed.
        bool mayLackFirstWord = false;
    };
    /// phrase and reference are of the same sound, both scored in full.
    [[nodiscard]] static Evidence weigh(std::span<const HeardSegment> phrase,
                                        std::span<const HeardSegment> reference, Shape shape);

    /// The wake phrase, whatever follows it.
    [[nodiscard]] bool provesWakePhrase() const;
    [[nodiscard]] bool provesCommand() const { return weakest().margin >= 0; }

    /// phrase and soundAlike are of the same sound, both scored in full. Below 0 when the other fits better,
    /// at most 10 either way, and 0 when one of them was not heard to its end, which says nothing.
    [[nodiscard]] static double distinguish(std::span<const HeardSegment> phrase,
                                            std::span<const HeardSegment> soundAlike);
    [[nodiscard]] bool isDistinct() const;

    /// phrase, which is a command alone, and phones are of the same sound, both scored in full.
    [[nodiscard]] static double compareToPhones(std::span<const HeardSegment> phrase,
                                                std::span<const HeardSegment> phones);
    [[nodiscard]] bool isSpeech() const;

    /// What speaks most against the phrase, and by how much more than is asked it is there: below 0 not
    /// enough.
    struct Weakest {
        double margin = 0;
        QString what;
    };
    [[nodiscard]] Weakest weakest() const;
};

/// Whether the phrase fits so badly that no reference is needed to see that it was not said.
[[nodiscard]] bool isOutOfQuestion(std::span<const HeardSegment> phrase);

} // namespace brivandel
