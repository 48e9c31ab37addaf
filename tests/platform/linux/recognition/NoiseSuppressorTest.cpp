#include "platform/linux/recognition/NoiseSuppressor.h"

#include "platform/linux/recognition/Signals.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

Samples suppressed(Samples sound) {
    NoiseSuppressor suppressor;
    for (std::size_t at = 0; at + samplesPerFrame <= sound.size(); at += samplesPerFrame) {
        suppressor.process(std::span<std::int16_t, samplesPerFrame>(sound.data() + at, samplesPerFrame));
    }
    return sound;
}

TEST(NoiseSuppressor, SteadyNoise_IsLearntAndTakenAway) {
    const Samples sound = suppressed(whiteNoise(-40, 3s));
    EXPECT_LT(decibelsOf(std::span(sound).last(sampleCount(1s))), -50);
}

TEST(NoiseSuppressor, Words_StayAndTheNoiseBetweenThemGoes) {
    const Samples words = vowels(4s);
    const Samples sound = suppressed(sum(words, whiteNoise(-40, 4s)));
    const std::size_t lastVowel = sampleCount(3650ms);
    const std::size_t lastGap = sampleCount(3850ms);
    const std::size_t length = sampleCount(100ms);
    EXPECT_NEAR(decibelsOf(std::span(sound).subspan(lastVowel, length)),
                decibelsOf(std::span(words).subspan(lastVowel, length)), 1);
    EXPECT_LT(decibelsOf(std::span(sound).subspan(lastGap, length)), -45);
}

TEST(NoiseSuppressor, Sound_ComesOutOneFrameLate) {
    const Samples words = vowels(2s);
    const Samples sound = suppressed(sum(words, whiteNoise(-40, 2s)));
    const double asExpected = likeness(words, sound, samplesPerFrame);
    for (const std::size_t other :
         {std::size_t{0}, samplesPerFrame - 1, samplesPerFrame + 1, 2 * samplesPerFrame}) {
        EXPECT_GT(asExpected, likeness(words, sound, other)) << other;
    }
}

} // namespace
} // namespace brivandel
