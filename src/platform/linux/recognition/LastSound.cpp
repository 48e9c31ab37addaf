#include "platform/linux/recognition/LastSound.h"

#include "platform/linux/recognition/Loudness.h"

#include <algorithm>
#include <vector>

namespace brivandel {

namespace {

// The end of "off" is 18 dB below its vowel, and an echo of the vowel falls by that in the time that it takes.
constexpr double faintest = 35;

// Before its words sound begins with what else there is in the room.
constexpr std::size_t framesBefore = 10;
constexpr double aboveTheRest = 6;

} // namespace

std::span<const std::int16_t> withoutSilenceAfter(std::span<const std::int16_t> sound) {
    std::vector<double> decibels;
    Loudness loudness;
    for (std::size_t at = 0; at + samplesPerFrame <= sound.size(); at += samplesPerFrame) {
        decibels.push_back(loudness(sound.subspan(at, samplesPerFrame)));
    }
    if (decibels.size() <= framesBefore) {
        return sound;
    }
    const auto words = decibels.begin() + framesBefore;
    const double least = std::max(*std::max_element(decibels.begin(), words) + aboveTheRest,
                                  *std::max_element(words, decibels.end()) - faintest);
    const auto last = std::find_if(decibels.rbegin(), decibels.rend(), [least](double level) { return level >= least; });
    const auto count = static_cast<std::size_t>(decibels.rend() - last);
    return count > framesBefore ? sound.first(count * samplesPerFrame) : sound;
}

} // namespace brivandel
