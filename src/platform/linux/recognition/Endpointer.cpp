#include "platform/linux/recognition/Endpointer.h"

#include <algorithm>
#include <cmath>

namespace brivandel {

namespace {

// Decibels below full scale. A room with a microphone is never quieter than the lowest floor; a digital
// silence is, and would make sound of its own dither. Until the room has been heard it is taken to be quiet,
// so that what is said at once is not lost.
constexpr double lowestFloor = -66;

} // namespace

Endpointer::Endpointer() : floor_(lowestFloor), smoothed_(lowestFloor) {
    spanMinima_.fill(lowestFloor);
}

Endpointer::Change Endpointer::push(std::span<const std::int16_t, samplesPerFrame> frame) {
    double energy = 0;
    for (const std::int16_t sample : frame) {
        // Rumble and hum are loud and low; speech is told by what lies above.
        const double bright = sample - 0.95 * lastSample_;
        lastSample_ = sample;
        energy += bright * bright;
    }
    const double decibels =
        10 * std::log10(energy / (static_cast<double>(samplesPerFrame) * 32768 * 32768) + 1e-12);
    followFloor(decibels);

    if (decibels > floor_ + onsetDecibels) {
        sound_ += frameLength;
        silence_ = std::chrono::milliseconds(0);
    } else {
        sound_ = std::chrono::milliseconds(0);
        silence_ += frameLength;
    }
    if (!inUtterance_ && sound_ >= onset) {
        inUtterance_ = true;
        return Change::Begin;
    }
    if (inUtterance_ && silence_ >= hangover) {
        inUtterance_ = false;
        return Change::End;
    }
    return Change::None;
}

void Endpointer::followFloor(double decibels) {
    // Single frames of steady noise swing by some decibels; their mean is what the floor means.
    smoothed_ += 0.3 * (decibels - smoothed_);
    double& minimum = spanMinima_[currentSpan_];
    minimum = framesInSpan_ == 0 ? smoothed_ : std::min(minimum, smoothed_);
    if (++framesInSpan_ == framesPerSpan) {
        framesInSpan_ = 0;
        currentSpan_ = (currentSpan_ + 1) % spanMinima_.size();
        floor_ = std::max(lowestFloor, *std::ranges::min_element(spanMinima_));
    }
}

} // namespace brivandel
