#pragma once

#include "platform/linux/recognition/RecognitionFormat.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <span>
#include <vector>

namespace brivandel {

/// Sound at recognitionRateHz.
using Samples = std::vector<std::int16_t>;

/// White, so loud below full scale. The same seed gives the same.
inline Samples whiteNoise(double decibels, std::chrono::milliseconds time, unsigned seed = 7) {
    std::mt19937 random(seed);
    std::normal_distribution<double> distribution(0, 32768 * std::pow(10, decibels / 20));
    Samples samples(sampleCount(time));
    std::ranges::generate(samples, [&] {
        return static_cast<std::int16_t>(std::lround(std::clamp(distribution(random), -32768.0, 32767.0)));
    });
    return samples;
}

/// What a function of the time in seconds gives, at full scale for 1.
template <typename Function>
Samples sampled(std::chrono::milliseconds time, const Function& valueAt) {
    Samples samples(sampleCount(time));
    for (std::size_t at = 0; at < samples.size(); ++at) {
        const double seconds = static_cast<double>(at) / recognitionRateHz;
        samples[at] = static_cast<std::int16_t>(std::lround(32767 * valueAt(seconds)));
    }
    return samples;
}

/// A fifth of a second each, with as much silence between them.
inline Samples vowels(std::chrono::milliseconds time) {
    return sampled(time, [](double seconds) {
        constexpr double pitchHz = 120;
        constexpr int partials = 25;
        double value = 0;
        for (int partial = 1; partial <= partials; ++partial) {
            value += std::sin(2 * std::numbers::pi * pitchHz * partial * seconds) / partials;
        }
        const bool isSounding = std::fmod(seconds, 0.4) < 0.2;
        return isSounding ? value : 0;
    });
}

/// Notes that die away, by 20 dB in the 0.4 seconds until the next.
inline Samples notes(std::chrono::milliseconds time) {
    return sampled(time, [](double seconds) {
        constexpr double pitchHz = 1200;
        return 0.09 * std::exp(-6 * std::fmod(seconds, 0.4)) *
               std::sin(2 * std::numbers::pi * pitchHz * seconds);
    });
}

inline Samples sum(const Samples& a, const Samples& b) {
    Samples result(a.size());
    std::ranges::transform(a, b, result.begin(), [](int x, int y) {
        return static_cast<std::int16_t>(std::clamp(x + y, -32768, 32767));
    });
    return result;
}

inline Samples quieter(Samples samples, int divisor) {
    std::ranges::transform(samples, samples.begin(),
                           [divisor](int sample) { return static_cast<std::int16_t>(sample / divisor); });
    return samples;
}

/// Below full scale.
inline double decibelsOf(std::span<const std::int16_t> samples) {
    double energy = 0;
    for (const double sample : samples) {
        energy += sample * sample;
    }
    return 10 * std::log10(energy / static_cast<double>(samples.size()) / 32768 / 32768 + 1e-12);
}

/// How much of the one is in the other where that is late by so many samples.
inline double likeness(const Samples& one, const Samples& other, std::size_t late) {
    double result = 0;
    for (std::size_t at = 0; at < one.size() && at + late < other.size(); ++at) {
        result += static_cast<double>(one[at]) * other[at + late];
    }
    return result;
}

} // namespace brivandel
