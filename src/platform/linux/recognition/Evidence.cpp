#include "platform/linux/recognition/Evidence.h"

#include <algorithm>

namespace brivandel {

namespace {

// From synthetic speech. Phrases that were said: mostly above -5 for the whole and -8 for each word; single
// short ones reach -12 and -20, and one word of many -54. Sentences that are nearly a phrase differ in one
// part of it, by -25 and below for a wrong word of the wake phrase, -28 and below for a wrong command.
constexpr double leastOfAll = -13;
constexpr double leastOfWakePhrase = -20;
constexpr double leastOfCommand = -25;
constexpr double leastOfCommandWord = -60;
// A command by itself is short, so that its vague edges weigh more: "undo" has been seen at -17 for the
// whole. Ordinary sentences forced into a command: -27 and below for the whole, -43 and below for the
// command.
constexpr double leastOfAllAlone = -20;
constexpr double leastOfCommandAlone = -30;
// "Topic the king we learned" is not "stop", however well that fits somewhere in it.
constexpr double leastCoverage = 0.7;
constexpr qsizetype mostSurplusWords = 2;
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

} // namespace

Evidence Evidence::weigh(std::span<const HeardSegment> phrase, std::span<const HeardSegment> reference,
                         qsizetype wakeWordCount) {
    Evidence evidence;
    evidence.commandAlone = wakeWordCount == 0;
    Sum command;
    qsizetype wordIndex = 0;
    for (const HeardSegment& segment : phrase) {
        if (segment.word.isEmpty()) {
            continue;
        }
        const Sum word{segment.score - scoreAt(segment, reference), segment.frameCount};
        if (wordIndex++ < wakeWordCount) {
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
    if (heard.frameCount > 0) {
        evidence.coverage = std::min(1.0, static_cast<double>(said.frameCount) / heard.frameCount);
    }
    Sum all = sumOf(phrase);
    all.score -= sumOf(reference).score;
    evidence.ofAll = all.mean();
    return evidence;
}

bool Evidence::provesWakePhrase() const {
    return ofWakePhrase >= leastOfWakePhrase;
}

bool Evidence::provesCommand() const {
    return ofAll >= (commandAlone ? leastOfAllAlone : leastOfAll) &&
           ofCommand >= (commandAlone ? leastOfCommandAlone : leastOfCommand) &&
           ofWorstCommandWord >= leastOfCommandWord && coverage >= leastCoverage &&
           surplusWords <= mostSurplusWords;
}

bool isOutOfQuestion(std::span<const HeardSegment> phrase) {
    return sumOf(phrase).mean() < leastScore;
}

} // namespace brivandel
