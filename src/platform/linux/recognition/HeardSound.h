#pragma once

#include "platform/linux/recognition/RecognitionFormat.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace brivandel {

/// The same sound twice: as it was heard, and without the noise of the room.
struct HeardSound {
    std::vector<std::int16_t> asHeard = {};
    std::vector<std::int16_t> withoutNoise = {};

    [[nodiscard]] AudioTime length() const { return AudioTime(static_cast<std::int64_t>(asHeard.size())); }

    void append(const HeardSound& more) {
        asHeard.insert(asHeard.end(), more.asHeard.begin(), more.asHeard.end());
        withoutNoise.insert(withoutNoise.end(), more.withoutNoise.begin(), more.withoutNoise.end());
    }
    /// All of it when it is shorter.
    void keepLast(AudioTime time) {
        for (std::vector<std::int16_t>* samples : {&asHeard, &withoutNoise}) {
            const std::size_t kept = std::min(sampleCount(time), samples->size());
            samples->erase(samples->begin(), samples->end() - static_cast<std::ptrdiff_t>(kept));
        }
    }
    void clear() {
        asHeard.clear();
        withoutNoise.clear();
    }
};

} // namespace brivandel
