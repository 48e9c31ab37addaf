#include "platform/linux/recognition/NoiseSuppressor.h"

#include "platform/linux/recognition/Loudness.h"

#include <speex/speex_preprocess.h>

#include <algorithm>
#include <vector>

namespace brivandel {

namespace {

constexpr double noisyDecibels = 25;

/// The loudness that a share of the frames stays below.
double quantile(std::vector<double> decibels, double share) {
    if (decibels.empty()) {
        return 0;
    }
    const auto at = decibels.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(decibels.size() - 1));
    std::ranges::nth_element(decibels, at);
    return *at;
}

} // namespace

void NoiseSuppressor::Destroy::operator()(SpeexPreprocessState* state) const {
    speex_preprocess_state_destroy(state);
}

NoiseSuppressor::NoiseSuppressor()
    : state_(speex_preprocess_state_init(static_cast<int>(samplesPerFrame), recognitionRateHz)) {}

void NoiseSuppressor::process(std::span<std::int16_t> samples) {
    for (std::size_t at = 0; at + samplesPerFrame <= samples.size(); at += samplesPerFrame) {
        speex_preprocess_run(state_.get(), samples.data() + at);
    }
}

bool isNoisy(std::span<const std::int16_t> words) {
    std::vector<double> decibels;
    Loudness loudness;
    for (std::size_t at = 0; at + samplesPerFrame <= words.size(); at += samplesPerFrame) {
        decibels.push_back(loudness(words.subspan(at, samplesPerFrame)));
    }
    return quantile(decibels, 0.95) - quantile(decibels, 0.2) < noisyDecibels;
}

} // namespace brivandel
