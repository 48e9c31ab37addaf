#include "platform/linux/recognition/NoiseSuppressor.h"

#include "platform/linux/recognition/Loudness.h"

#include <speex/speex_preprocess.h>

#include <algorithm>
#include <vector>

namespace brivandel {

namespace {

// By so much the words are louder than the noise. In a quiet room, and with a quiet voice, it is 24 dB and
// more.
constexpr double noisyDecibels = 22;
// The quieter frames of noise are alike: those of pink and of white noise differ by 1.3 dB at most, and those
// of instruments by 2.1 dB at least.
constexpr double steadyDecibels = 1.7;

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

bool isInSteadyNoise(std::span<const std::int16_t> words) {
    std::vector<double> decibels;
    Loudness loudness;
    for (std::size_t at = 0; at + samplesPerFrame <= words.size(); at += samplesPerFrame) {
        decibels.push_back(loudness(words.subspan(at, samplesPerFrame)));
    }
    if (decibels.empty()) {
        return false;
    }
    std::ranges::sort(decibels);
    const auto quantile = [&decibels](double share) {
        return decibels[static_cast<std::size_t>(share * static_cast<double>(decibels.size() - 1))];
    };
    return quantile(0.95) - quantile(0.2) < noisyDecibels && quantile(0.3) - quantile(0.05) < steadyDecibels;
}

} // namespace brivandel
