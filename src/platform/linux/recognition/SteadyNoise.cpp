#include "platform/linux/recognition/SteadyNoise.h"

#include "platform/linux/recognition/Loudness.h"
#include "platform/linux/recognition/RecognitionFormat.h"

#include <algorithm>
#include <vector>

namespace brivandel {

namespace {

// Shares of the frames that are quieter. The first is what an opening has of its vowels; a third of it and
// more comes before the words and between them, and there the least is not taken, which may be one frame.
constexpr double words = 0.95;
constexpr double background = 0.2;
constexpr double leastOfBackground = 0.05;
constexpr double mostOfBackground = 0.3;

// By so much the words are louder than the noise. A quiet voice in a quiet room is louder by 24 dB and more;
// over pink noise 20 dB below it, it is 14 to 23.
constexpr double noisyDecibels = 22;
// So much the frames of noise differ: of pink and of white by 1.3 dB at most, of instruments by 2.1 at least.
constexpr double steadyDecibels = 1.7;

} // namespace

bool isInSteadyNoise(std::span<const std::int16_t> sound) {
    std::vector<double> decibels;
    Loudness loudness;
    for (std::size_t at = 0; at + samplesPerFrame <= sound.size(); at += samplesPerFrame) {
        decibels.push_back(loudness(sound.subspan(at, samplesPerFrame)));
    }
    if (decibels.empty()) {
        return false;
    }
    std::ranges::sort(decibels);
    const auto quantile = [&decibels](double share) {
        return decibels[static_cast<std::size_t>(share * static_cast<double>(decibels.size() - 1))];
    };
    return quantile(words) - quantile(background) < noisyDecibels &&
           quantile(mostOfBackground) - quantile(leastOfBackground) < steadyDecibels;
}

} // namespace brivandel
