#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ratio>

namespace brivandel {

/// What the acoustic model was trained on: 16 kHz, mono, 16 bits.
inline constexpr int recognitionRateHz = 16000;

/// Time as the recogniser knows it: how much sound has gone by.
using AudioTime = std::chrono::duration<std::int64_t, std::ratio<1, recognitionRateHz>>;

/// The endpointer and the policy for partial results look at sound in frames of 10 ms.
inline constexpr std::chrono::milliseconds frameLength{10};
inline constexpr std::size_t samplesPerFrame = 160;

[[nodiscard]] constexpr std::size_t sampleCount(AudioTime time) {
    return static_cast<std::size_t>(time.count());
}

static_assert(sampleCount(frameLength) == samplesPerFrame);

} // namespace brivandel
