#include "platform/linux/recognition/Evidence.h"

#include <algorithm>
#include <array>

namespace brivandel {

namespace {

/// The least of each kind of evidence that makes a command.
struct Demands {
    double all;
    double wakePhrase;
    double command;
    double commandWord;
    double coverage;
    qsizetype surplusWords;
};

// From synthetic speech. Where the reference hears the same words, a phrase that was said scores above -5 for
// the whole and -9 for the command, and what was not said hardly ever agrees by chance. In loud music both
// fit worse.
constexpr Demands ifAgreed = {-15, -20, -25, -60, 0, 100};
// Where it hears others, sentences that are nearly a phrase come as near as -13 for a wrong word of the wake
// phrase and -15 for a wrong command; such as were said and are given up by this are 1 in 50.
constexpr Demands ifDisputed = {-10, -12, -13, -35, 0.7, 2};
// "Hey" is short and seldom stressed, and of voices that are made, not recorded, the reference hears "the
// logic" or "to you logic" every third time, at -27 to -45 for that word.
constexpr Demands ifAgreedButForTheFirstWord = {-15, -50, -13, -60, 0, 100};
// A command by itself is short, so that its vague edges weigh more: "undo" has been seen at -17 for the whole
// and -20 for the command. Beats of a drum have been taken for "save" at -8 and -16: both cannot be had, and
// a command after a pause counts for more. Ordinary sentences forced into a command: -27 and below for the
// whole, -43 and below for the command.
constexpr Demands ifAgreedAlone = {-20, -20, -30, -60, 0, 100};
constexpr Demands ifDisputedAlone = {-20, -12, -30, -60, 0.7, 2};

// Of 55 commands that were heard in four minutes of music 53 are below this, and of 41 that were said 4. One
// of those is lost: the others both decoders hear at once, which of music they never did, and nobody asks.
constexpr double leastAmongPhones = -10;

// So much tells two phrases apart. More is not counted, so that no one of several comparisons decides alone.
constexpr double clearDistinction = 10;

const Demands& demandsOn(const Evidence& evidence) {
    const bool isAgreed = evidence.agreement == Agreement::Whole;
    if (evidence.commandAlone) {
        return isAgreed ? ifAgreedAlone : ifDisputedAlone;
    }
    if (evidence.agreement == Agreement::ButForTheFirstWord) {
        return ifAgreedButForTheFirstWord;
    }
    return isAgreed ? ifAgreed : ifDisputed;
}

// A phrase that was said never scores below -60 by itself; ordinary sentences score -70 to -100.
constexpr double leastScore = -75;

struct Sum {
    double score = 0;
    int frameCount = 0;

    [[nodiscard]] double mean() const { return frameCount > 0 ? score / frameCount : 0; }
};

Sum sumOf(std::span<const HeardSegment> segments) {
    Sum sum;
    for (const HeardSegment& segment : segments) {
        sum.score += segment.score;
        sum.frameCount += segment.frameCount;
    }
    return sum;
}

/// Frames with words in them, and how many words there are.
struct Extent {
    int frameCount = 0;
    qsizetype wordCount = 0;
};

Extent extentOf(std::span<const HeardSegment> segments) {
    Extent extent;
    for (const HeardSegment& segment : segments) {
        if (!segment.word.isEmpty()) {
            extent.frameCount += segment.frameCount;
            ++extent.wordCount;
        }
    }
    return extent;
}

/// The score of the frames that the place covers. Within a segment it is taken to be spread evenly.
double scoreAt(const HeardSegment& place, std::span<const HeardSegment> segments) {
    const int end = place.firstFrame + place.frameCount;
    double score = 0;
    for (const HeardSegment& segment : segments) {
        const int first = std::max(place.firstFrame, segment.firstFrame);
        const int last = std::min(end, segment.firstFrame + segment.frameCount);
        if (last > first) {
            score += segment.score * (last - first) / segment.frameCount;
        }
    }
    return score;
}

Agreement agreementOf(const QStringList& words, const QStringList& reference, const Evidence::Shape& shape) {
    const bool mayBeFollowed = !shape.mayGoOn && shape.wakeWordCount > 0;
    const auto endsWith = [&reference](const QStringList& wanted) {
        return reference.last(std::min(wanted.size(), reference.size())) == wanted;
    };
    if (endsWith(words) || (mayBeFollowed && std::search(reference.begin(), reference.end(), words.begin(),
                                                         words.end()) != reference.end())) {
        return Agreement::Whole;
    }
    // "To you logic" is one word more than "hey logic".
    const bool isRestTelling = shape.mayLackFirstWord && shape.wakeWordCount > 1 &&
                               words.size() > shape.wakeWordCount && reference.size() <= words.size() + 1;
    return isRestTelling && endsWith(words.sliced(1)) ? Agreement::ButForTheFirstWord : Agreement::None;
}

} // namespace

Evidence Evidence::weigh(std::span<const HeardSegment> phrase, std::span<const HeardSegment> reference,
                         Shape shape) {
    Evidence evidence;
    evidence.commandAlone = shape.wakeWordCount == 0;
    Sum command;
    qsizetype wordIndex = 0;
    for (const HeardSegment& segment : phrase) {
        if (segment.word.isEmpty()) {
            continue;
        }
        const Sum word{segment.score - scoreAt(segment, reference), segment.frameCount};
        if (wordIndex++ < shape.wakeWordCount) {
            evidence.ofWakePhrase = std::min(evidence.ofWakePhrase, word.mean());
            continue;
        }
        command.score += word.score;
        command.frameCount += word.frameCount;
        evidence.ofWorstCommandWord = std::min(evidence.ofWorstCommandWord, word.mean());
    }
    evidence.ofCommand = command.mean();
    const Extent said = extentOf(phrase);
    const Extent heard = extentOf(reference);
    evidence.surplusWords = heard.wordCount - said.wordCount;
    // Where the reference finds no words, nothing says that anybody spoke: beats of a drum come so.
    evidence.coverage =
        heard.frameCount > 0 ? std::min(1.0, static_cast<double>(said.frameCount) / heard.frameCount) : 0;
    Sum all = sumOf(phrase);
    all.score -= sumOf(reference).score;
    evidence.ofAll = all.mean();
    evidence.agreement = agreementOf(wordsOf(phrase), wordsOf(reference), shape);
    return evidence;
}

double Evidence::distinguish(std::span<const HeardSegment> phrase, std::span<const HeardSegment> soundAlike) {
    const QStringList words = wordsOf(phrase);
    const QStringList others = wordsOf(soundAlike);
    if (words.size() != others.size()) {
        return 0;
    }
    int frameCount = 0;
    qsizetype wordIndex = 0;
    for (const HeardSegment& segment : phrase) {
        if (!segment.word.isEmpty() && segment.word != others[wordIndex++]) {
            frameCount += segment.frameCount;
        }
    }
    const double difference =
        frameCount > 0 ? (sumOf(phrase).score - sumOf(soundAlike).score) / frameCount : 0;
    return std::clamp(difference, -clearDistinction, clearDistinction);
}

bool Evidence::isDistinct() const {
    return distinction >= leastDistinction;
}

bool Evidence::provesWakePhrase() const {
    // Only the command that follows it excuses a swallowed word.
    const Demands& least = agreement == Agreement::ButForTheFirstWord ? ifDisputed : demandsOn(*this);
    return ofWakePhrase >= least.wakePhrase;
}

double Evidence::compareToPhones(std::span<const HeardSegment> phrase, std::span<const HeardSegment> phones) {
    const Evidence evidence = weigh(phrase, phones, {});
    return std::min(evidence.ofAll, evidence.ofCommand);
}

bool Evidence::isSpeech() const {
    return amongPhones >= leastAmongPhones;
}

Evidence::Weakest Evidence::weakest() const {
    const Demands& least = demandsOn(*this);
    const std::array<Weakest, 8> margins = {{
        {ofWakePhrase - least.wakePhrase, QStringLiteral("the wake phrase fits badly")},
        {ofAll - least.all, QStringLiteral("the whole fits badly")},
        {ofCommand - least.command, QStringLiteral("the command fits badly")},
        {ofWorstCommandWord - least.commandWord, QStringLiteral("a word fits badly")},
        {100 * (coverage - least.coverage), QStringLiteral("something else was said beside it")},
        {10 * static_cast<double>(least.surplusWords - surplusWords), QStringLiteral("more words were said")},
        {distinction - leastDistinction, QStringLiteral("it sounds like another command")},
        {amongPhones - leastAmongPhones, QStringLiteral("it is hardly speech")},
    }};
    return *std::ranges::min_element(margins, {}, &Weakest::margin);
}

bool isOutOfQuestion(std::span<const HeardSegment> phrase) {
    return sumOf(phrase).mean() < leastScore;
}

} // namespace brivandel
