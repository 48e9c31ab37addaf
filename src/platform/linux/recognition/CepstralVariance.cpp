#include "platform/linux/recognition/CepstralVariance.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace brivandel {

namespace {

// How much the model's densities vary, as standard deviations: the root of the sum of the mean of their
// variances and the variance of their means, over all phones but the silences. Not of the first coefficient,
// which is the loudness: its densities have the pauses in them as well.
constexpr std::array deviationsOfTraining = {0.0,   15.96, 13.59, 18.31, 17.16, 14.88, 16.20,
                                             15.66, 15.01, 14.98, 13.65, 12.92, 12.08};

// Natural voices vary by up to an eighth more than that, formant voices by up to twice as much: what natural
// voices do stays as it is.
constexpr double tolerance = 1.25;

// Voice is what is louder than so much of the way from the soft to the loud.
constexpr double shareOfLoudness = 0.3;
constexpr double soft = 0.1;
constexpr double loud = 0.95;
constexpr std::size_t leastVoicedRows = 15;

std::vector<const float*> voicedRows(const Features& features) {
    const std::size_t step = features.coefficientCount;
    std::vector<float> loudness;
    for (std::size_t at = 0; at < features.values.size(); at += step) {
        loudness.push_back(features.values[at]);
    }
    std::vector<const float*> rows;
    if (loudness.empty()) {
        return rows;
    }
    std::ranges::sort(loudness);
    const auto quantile = [&loudness](double share) {
        return loudness[static_cast<std::size_t>(share * static_cast<double>(loudness.size()))];
    };
    const double least = quantile(soft) + shareOfLoudness * (quantile(loud) - quantile(soft));
    for (std::size_t at = 0; at < features.values.size(); at += step) {
        if (features.values[at] >= least) {
            rows.push_back(&features.values[at]);
        }
    }
    return rows;
}

} // namespace

void limitVariance(Features& features) {
    const std::vector<const float*> voiced = voicedRows(features);
    if (voiced.size() < leastVoicedRows) {
        return;
    }
    const auto count = static_cast<double>(voiced.size());
    for (std::size_t i = 1; i < std::min(features.coefficientCount, deviationsOfTraining.size()); ++i) {
        double sum = 0;
        double squares = 0;
        for (const float* row : voiced) {
            sum += row[i];
            squares += static_cast<double>(row[i]) * row[i];
        }
        const double mean = sum / count;
        const double deviation = std::sqrt(std::max(squares / count - mean * mean, 0.0));
        const double most = tolerance * deviationsOfTraining.at(i);
        if (deviation <= most) {
            continue;
        }
        const double factor = most / deviation;
        for (std::size_t at = i; at < features.values.size(); at += features.coefficientCount) {
            features.values[at] = static_cast<float>(mean + (features.values[at] - mean) * factor);
        }
    }
}

} // namespace brivandel
