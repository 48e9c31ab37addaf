#pragma once

#include <cmath>
#include <cstdint>
#include <span>

namespace brivandel {

/// How loud sound is, frame by frame, in decibels below full scale. Rumble and hum are loud and low; speech
/// is told by what lies above, so each sample counts by its difference from the one before it.
class Loudness {
public:
    double operator()(std::span<const std::int16_t> frame) {
        double energy = 0;
        for (const std::int16_t sample : frame) {
            const double bright = sample - 0.95 * lastSample_;
            lastSample_ = sample;
            energy += bright * bright;
        }
        return 10 * std::log10(energy / (static_cast<double>(frame.size()) * 32768 * 32768) + 1e-12);
    }

private:
    double lastSample_ = 0;
};

} // namespace brivandel
