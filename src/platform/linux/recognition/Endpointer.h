#pragma once

#include "platform/linux/recognition/RecognitionFormat.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <span>

namespace brivandel {

/// Finds where an utterance begins and ends, by loudness above a floor that follows the room.
class Endpointer {
public:
    /// Louder than the floor by this much is sound; measured: less opens at every breath, more cuts soft
    /// endings.
    static constexpr double onsetDecibels = 8;
    /// Sound must last so long to begin an utterance, and silence so long to end one.
    static constexpr std::chrono::milliseconds onset{40};
    static constexpr std::chrono::milliseconds hangover{420};
    /// How far back an utterance reaches before the sound that began it: soft consonants come before the loud
    /// vowel.
    static constexpr std::chrono::milliseconds preRoll{300};

    enum class Change : std::uint8_t { None, Begin, End };

    Endpointer();

    /// Takes one frame of 10 ms. End comes once, hangover after the last sound.
    Change push(std::span<const std::int16_t, samplesPerFrame> frame);

    [[nodiscard]] bool inUtterance() const { return inUtterance_; }
    /// How long it has been silent; 0 while there is sound.
    [[nodiscard]] std::chrono::milliseconds silence() const { return silence_; }

private:
    void followFloor(double decibels);

    // The floor is the quietest moment of the last 1.5 seconds: any speech has a gap in that time, and a fan
    // that is switched on is no longer taken for speech after it. Kept as the minima of six quarters of a
    // second.
    static constexpr int framesPerSpan = 25;
    std::array<double, 6> spanMinima_{};
    std::size_t currentSpan_ = 0;
    int framesInSpan_ = 0;
    double floor_;

    double smoothed_;
    double lastSample_ = 0;
    bool inUtterance_ = false;
    std::chrono::milliseconds sound_{0};
    std::chrono::milliseconds silence_{0};
};

} // namespace brivandel
