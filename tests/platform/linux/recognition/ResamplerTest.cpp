#include "platform/linux/recognition/Resampler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace brivandel {
namespace {

std::vector<float> tone(double frequencyHz, double rateHz, double seconds) {
    std::vector<float> samples(static_cast<std::size_t>(rateHz * seconds));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<float>(
            std::sin(2 * std::numbers::pi * frequencyHz * static_cast<double>(i) / rateHz));
    }
    return samples;
}

/// Of the middle, where no edge disturbs.
double loudness(const std::vector<float>& samples) {
    double energy = 0;
    const std::size_t margin = samples.size() / 4;
    for (std::size_t i = margin; i < samples.size() - margin; ++i) {
        energy += static_cast<double>(samples[i]) * samples[i];
    }
    return std::sqrt(energy / static_cast<double>(samples.size() - 2 * margin));
}

std::vector<float> resampled(std::span<const float> input, double rateHz, std::size_t blockLength) {
    const auto resampler = Resampler::forRate(rateHz);
    std::vector<float> out;
    while (!input.empty()) {
        const std::size_t count = std::min(blockLength, input.size());
        resampler->process(input.first(count), out);
        input = input.subspan(count);
    }
    resampler->finish(out);
    return out;
}

class ResamplerRate : public testing::TestWithParam<double> {};

TEST_P(ResamplerRate, Voice_KeepsItsLengthAndLoudness) {
    const auto out = resampled(tone(1000, GetParam(), 1), GetParam(), 480);
    EXPECT_NEAR(static_cast<double>(out.size()), 16000, 2);
    EXPECT_NEAR(loudness(out), std::numbers::sqrt2 / 2, 0.01);
}

TEST_P(ResamplerRate, BlocksOfAnyLength_GiveTheSame) {
    const auto input = tone(440, GetParam(), 0.25);
    EXPECT_EQ(resampled(input, GetParam(), 1), resampled(input, GetParam(), 100000));
}

INSTANTIATE_TEST_SUITE_P(Device, ResamplerRate,
                         testing::Values(8000, 16000, 22050, 44100, 48000, 96000, 192000));

TEST(Resampler, SoundAboveTheRecognisersRange_IsNotFoldedIntoIt) {
    EXPECT_LT(loudness(resampled(tone(15000, 48000, 1), 48000, 1024)), 0.003);
}

TEST(Resampler, FirstSound_ComesOutWithinThirtyMilliseconds) {
    const auto resampler = Resampler::forRate(48000);
    std::vector<float> out;
    resampler->process(tone(1000, 48000, 0.1), out);
    EXPECT_GE(out.size(), static_cast<std::size_t>(0.07 * 16000));
}

TEST(Resampler, RateOutsideItsBounds_IsRefused) {
    for (const double rate : {0.0, -1.0, 7999.0, 192001.0, std::nan("")}) {
        EXPECT_FALSE(Resampler::forRate(rate)) << rate;
    }
}

} // namespace
} // namespace brivandel
