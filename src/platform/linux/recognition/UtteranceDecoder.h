#pragma once

#include "platform/linux/recognition/PhraseGraph.h"

#include <cstdint>
#include <optional>
#include <span>

namespace brivandel {

/// Understands one utterance after the other: samples at 16 kHz in, phrases out. Any one thread at a time.
class UtteranceDecoder {
public:
    virtual ~UtteranceDecoder() = default;

    /// Begins an utterance; one that is going on is forgotten.
    virtual void begin(Expecting expecting) = 0;
    virtual void process(std::span<const std::int16_t> samples) = 0;
    /// What has been said if nothing more is said; none while that is not sure to be a phrase. Worth asking
    /// only in silence: in the middle of a word there is no telling. Costs some milliseconds for each new
    /// answer.
    [[nodiscard]] virtual std::optional<Reading> interim() = 0;
    /// Ends the utterance and goes over the whole of it once more.
    [[nodiscard]] virtual std::optional<Reading> end() = 0;
};

} // namespace brivandel
