#include "platform/linux/recognition/CepstralVariance.h"

#include <gtest/gtest.h>

#include <cmath>

namespace brivandel {
namespace {

constexpr std::size_t coefficientCount = 13;

/// A loud voice after a pause of half its length, each coefficient of it swinging by so much about 5.
Features voice(std::size_t rowCount, double swing) {
    Features features;
    features.coefficientCount = coefficientCount;
    for (std::size_t row = 0; row < rowCount; ++row) {
        const bool isPause = row < rowCount / 3;
        features.values.push_back(isPause ? 10 : 60);
        for (std::size_t i = 1; i < coefficientCount; ++i) {
            const auto phase = static_cast<double>(row * i);
            features.values.push_back(isPause ? 0 : static_cast<float>(5 + swing * std::sin(phase)));
        }
    }
    return features;
}

double deviation(const Features& features, std::size_t coefficient) {
    double sum = 0;
    double squares = 0;
    double count = 0;
    for (std::size_t at = 0; at < features.values.size(); at += features.coefficientCount) {
        if (features.values[at] > 30) {
            const double value = features.values[at + coefficient];
            sum += value;
            squares += value * value;
            ++count;
        }
    }
    return std::sqrt(squares / count - std::pow(sum / count, 2));
}

TEST(CepstralVariance, VoiceThatVariesTooMuch_VariesAQuarterMoreThanTheTraining) {
    Features features = voice(150, 60);
    ASSERT_GT(deviation(features, 4), 35);
    limitVariance(features);
    EXPECT_NEAR(deviation(features, 4), 21.5, 0.1);
    EXPECT_NEAR(deviation(features, 12), 15.1, 0.1);
}

TEST(CepstralVariance, Loudness_StaysAsItIs) {
    Features features = voice(150, 60);
    limitVariance(features);
    EXPECT_EQ(features.values.front(), 10);
    EXPECT_EQ(features.values[features.values.size() - coefficientCount], 60);
}

TEST(CepstralVariance, VoiceThatVariesLess_StaysAsItIs) {
    Features features = voice(150, 10);
    const Features before = features;
    limitVariance(features);
    EXPECT_EQ(features.values, before.values);
}

TEST(CepstralVariance, LongerPause_ChangesNothingInTheVoice) {
    Features alone = voice(150, 60);
    Features longPause = alone;
    for (int row = 0; row < 10; ++row) {
        longPause.values.insert(longPause.values.begin(), alone.values.begin(),
                                alone.values.begin() + coefficientCount);
    }
    limitVariance(alone);
    limitVariance(longPause);
    EXPECT_EQ(alone.values.back(), longPause.values.back());
}

TEST(CepstralVariance, SoundWithoutAPause_IsAllVoice) {
    Features features = voice(150, 60);
    features.values.erase(features.values.begin(), features.values.begin() + 50 * coefficientCount);
    limitVariance(features);
    EXPECT_NEAR(deviation(features, 4), 21.5, 0.1);
}

TEST(CepstralVariance, JustEnoughSound_IsLimited) {
    Features features = voice(24, 60);
    limitVariance(features);
    EXPECT_LT(deviation(features, 4), 21.5);
}

TEST(CepstralVariance, TooLittleSound_StaysAsItIs) {
    for (const std::size_t rowCount : {0U, 1U, 14U, 20U}) {
        Features features = voice(rowCount, 60);
        const Features before = features;
        limitVariance(features);
        EXPECT_EQ(features.values, before.values) << rowCount;
    }
}

} // namespace
} // namespace brivandel
