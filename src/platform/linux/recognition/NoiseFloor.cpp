#include "platform/linux/recognition/NoiseFloor.h"

#include <algorithm>

namespace brivandel {

namespace {

// Decibels below full scale. A room with a microphone is never quieter than the lowest floor; a digital
// silence is, and would make sound of its own dither. Until the room has been heard it is taken to be quiet,
// so that what is said at once is not lost.
constexpr double lowestFloor = -66;

} // namespace

NoiseFloor::NoiseFloor() : decibels_(lowestFloor), smoothed_(lowestFloor) {
    spanMinima_.fill(lowestFloor);
}

bool NoiseFloor::push(std::span<const std::int16_t, samplesPerFrame> frame) {
    const double decibels = loudness_(frame);
    follow(decibels);
    return decibels > decibels_ + onsetDecibels;
}

void NoiseFloor::follow(double decibels) {
    // Single frames of steady noise swing by some decibels; their mean is what the floor means.
    smoothed_ += 0.3 * (decibels - smoothed_);
    double& minimum = spanMinima_[currentSpan_];
    minimum = framesInSpan_ == 0 ? smoothed_ : std::min(minimum, smoothed_);
    if (++framesInSpan_ == framesPerSpan) {
        framesInSpan_ = 0;
        currentSpan_ = (currentSpan_ + 1) % spanMinima_.size();
        decibels_ = std::max(lowestFloor, *std::ranges::min_element(spanMinima_));
    }
}

} // namespace brivandel
