#pragma once

#include "platform/linux/recognition/NoiseFloor.h"
#include "platform/linux/recognition/RecognitionFormat.h"

#include <chrono>
#include <cstdint>
#include <span>

namespace brivandel {

/// Finds where an utterance begins and ends, by loudness above a floor that follows the room.
class Endpointer {
public:
    /// Sound must last so long to begin an utterance, and silence so long to end one.
    static constexpr std::chrono::milliseconds onset{40};
    static constexpr std::chrono::milliseconds hangover{420};
    /// How far back an utterance reaches before the sound that began it: soft consonants come before the loud
    /// vowel.
    static constexpr std::chrono::milliseconds preRoll{300};

    enum class Change : std::uint8_t { None, Begin, End };

    /// Takes one frame of 10 ms, as it was heard and without its noise: a voice that is little louder than
    /// the noise stands out of the second, and its softest sounds, if there is no noise, out of the first.
    /// End comes once, hangover after the last sound.
    Change push(std::span<const std::int16_t, samplesPerFrame> asHeard,
                std::span<const std::int16_t, samplesPerFrame> withoutNoise);

    [[nodiscard]] bool inUtterance() const { return inUtterance_; }
    /// How long it has been silent; 0 while there is sound.
    [[nodiscard]] std::chrono::milliseconds silence() const { return silence_; }

private:
    NoiseFloor floorAsHeard_;
    NoiseFloor floorWithoutNoise_;
    bool inUtterance_ = false;
    std::chrono::milliseconds sound_{0};
    std::chrono::milliseconds silence_{0};
};

} // namespace brivandel
