#include "platform/linux/recognition/NoiseSuppressor.h"

#include "platform/linux/recognition/RecognitionFormat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <random>
#include <vector>

namespace brivandel {
namespace {

using namespace std::chrono_literals;
using Samples = std::vector<std::int16_t>;

Samples noise(double decibels, std::chrono::milliseconds time) {
    static std::minstd_rand random(7);
    std::normal_distribution<double> distribution(0, 32768 * std::pow(10, decibels / 20));
    Samples samples(sampleCount(time));
    std::ranges::generate(samples, [&distribution] {
        return static_cast<std::int16_t>(std::lround(std::clamp(distribution(random), -32768.0, 32767.0)));
    });
    return samples;
}

/// Vowels of a fifth of a second with as much silence between them, at full scale but for 10 dB.
Samples vowels(std::chrono::milliseconds time) {
    constexpr double pitchHz = 120;
    Samples samples(sampleCount(time));
    for (std::size_t at = 0; at < samples.size(); ++at) {
        const double seconds = static_cast<double>(at) / recognitionRateHz;
        double value = 0;
        for (int partial = 1; partial <= 25; ++partial) {
            value += std::sin(2 * std::numbers::pi * pitchHz * partial * seconds) / 25;
        }
        const bool isSounding = std::fmod(seconds, 0.4) < 0.2;
        samples[at] = isSounding ? static_cast<std::int16_t>(std::lround(32767 * value)) : std::int16_t{0};
    }
    return samples;
}

Samples sum(const Samples& a, const Samples& b) {
    Samples result(a.size());
    std::ranges::transform(a, b, result.begin(), [](int x, int y) {
        return static_cast<std::int16_t>(std::clamp(x + y, -32768, 32767));
    });
    return result;
}

Samples quieter(Samples samples, int divisor) {
    std::ranges::transform(samples, samples.begin(),
                           [divisor](int sample) { return static_cast<std::int16_t>(sample / divisor); });
    return samples;
}

double decibels(std::span<const std::int16_t> samples) {
    const double energy =
        std::accumulate(samples.begin(), samples.end(), 0.0,
                        [](double total, double sample) { return total + sample * sample; });
    return 10 * std::log10(energy / static_cast<double>(samples.size()) / 32768 / 32768 + 1e-12);
}

TEST(NoiseSuppressorTest, SteadyNoise_IsLearntAndTakenAway) {
    Samples sound = noise(-40, 3s);
    NoiseSuppressor().process(sound);
    EXPECT_LT(decibels(std::span(sound).last(sampleCount(1s))), -50);
}

TEST(NoiseSuppressorTest, Words_StayWhereTheyAreButForOneFrame) {
    const Samples words = vowels(4s);
    Samples sound = sum(words, noise(-40, 4s));
    NoiseSuppressor().process(sound);

    const auto lastVowel = std::span<const std::int16_t>(sound).subspan(sampleCount(3650ms) + samplesPerFrame,
                                                                        sampleCount(100ms));
    EXPECT_NEAR(decibels(lastVowel),
                decibels(std::span(words).subspan(sampleCount(3650ms), lastVowel.size())), 1);
    const auto lastGap = std::span(sound).subspan(sampleCount(3850ms), sampleCount(100ms));
    EXPECT_LT(decibels(lastGap), -45);
}

TEST(NoiseSuppressorTest, Process_InPiecesOrAtOnceIsTheSame) {
    const Samples sound = sum(vowels(2s), noise(-40, 2s));
    Samples atOnce = sound;
    NoiseSuppressor().process(atOnce);
    Samples inPieces = sound;
    NoiseSuppressor suppressor;
    for (std::size_t at = 0; at < inPieces.size(); at += 3 * samplesPerFrame) {
        suppressor.process(
            std::span(inPieces).subspan(at, std::min(3 * samplesPerFrame, inPieces.size() - at)));
    }
    EXPECT_EQ(inPieces, atOnce);
}

TEST(NoiseSuppressorTest, SteadyNoise_IsToldByHowMuchLouderTheWordsAre) {
    const Samples words = vowels(800ms);
    EXPECT_FALSE(isInSteadyNoise(sum(words, noise(-70, 800ms))));
    EXPECT_TRUE(isInSteadyNoise(sum(words, noise(-35, 800ms))));
    // Whoever speaks from far away has the quiet room as loud as that.
    EXPECT_TRUE(isInSteadyNoise(sum(quieter(words, 50), noise(-70, 800ms))));
    EXPECT_FALSE(isInSteadyNoise({}));
}

TEST(NoiseSuppressorTest, Music_IsNoSteadyNoise) {
    Samples music = quieter(vowels(800ms), 5);
    for (std::size_t at = 0; at < music.size(); ++at) {
        const double decay = std::exp(-static_cast<double>(at) / recognitionRateHz);
        music[at] = static_cast<std::int16_t>(std::lround(music[at] * decay));
    }
    EXPECT_FALSE(isInSteadyNoise(sum(music, noise(-70, 800ms))));
}

} // namespace
} // namespace brivandel
