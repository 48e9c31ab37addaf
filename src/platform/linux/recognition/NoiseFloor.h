#pragma once

#include "platform/linux/recognition/Loudness.h"
#include "platform/linux/recognition/RecognitionFormat.h"

#include <array>
#include <cstdint>
#include <span>

namespace brivandel {

/// How loud a room is when nobody speaks, and whether it is louder now.
class NoiseFloor {
public:
    /// Louder than the floor by this much is sound; measured: less opens at every breath, more cuts soft
    /// endings.
    static constexpr double onsetDecibels = 8;

    NoiseFloor();

    /// Takes one frame of 10 ms, each once, and says whether there is sound in it.
    [[nodiscard]] bool push(std::span<const std::int16_t, samplesPerFrame> frame);

private:
    void follow(double decibels);

    // The floor is the quietest moment of the last 1.5 seconds: any speech has a gap in that time, and a fan
    // that is switched on is no longer taken for speech after it. Kept as the minima of six quarters of a
    // second.
    static constexpr int framesPerSpan = 25;
    std::array<double, 6> spanMinima_{};
    std::size_t currentSpan_ = 0;
    int framesInSpan_ = 0;
    double decibels_;

    Loudness loudness_;
    double smoothed_;
};

} // namespace brivandel
