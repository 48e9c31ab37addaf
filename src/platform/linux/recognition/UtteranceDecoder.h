#pragma once

#include "platform/SpeechRecognition.h"
#include "platform/linux/recognition/HeardSound.h"
#include "platform/linux/recognition/PhraseGraph.h"

#include <optional>

namespace brivandel {

/// What an utterance comes to when the whole of it is gone over once more.
struct Conclusion {
    std::optional<Reading> reading;
    /// It breaks off within a phrase, as people do who think of the number after "go to bar".
    bool isUnfinished = false;
    /// None when nothing that was said came near a phrase.
    std::optional<UtteranceVerdict> verdict;
};

/// Understands one utterance after the other: samples at 16 kHz in, phrases out. Any one thread at a time.
class UtteranceDecoder {
public:
    virtual ~UtteranceDecoder() = default;

    /// Begins an utterance; one that is going on is forgotten.
    virtual void begin(Expecting expecting) = 0;
    virtual void process(const HeardSound& sound) = 0;
    /// What has been said if nothing more is said; none while that is not sure to be a phrase. Worth asking
    /// only in silence: in the middle of a word there is no telling. Costs some milliseconds for each new
    /// answer.
    [[nodiscard]] virtual std::optional<Reading> interim() = 0;
    /// Whether anything in it seems to be for us. Costs nothing.
    [[nodiscard]] virtual bool isPromising() const = 0;
    /// What has been said so far, if nothing more is said: dearer than interim(), and surer.
    [[nodiscard]] virtual Conclusion conclude() = 0;
};

} // namespace brivandel
