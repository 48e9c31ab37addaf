#include "platform/linux/recognition/CepstralVariance.h"
#include "platform/linux/recognition/Decoder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace brivandel {
namespace {

/// Half a second of a vowel by a speaker all of whose frequencies are higher by the factor.
std::vector<std::int16_t> vowel(double factor) {
    const double pitchHz = 110 * factor;
    const auto resonanceAt = [factor](double hz, double centreHz) {
        return 1 / (1 + std::pow((hz / factor - centreHz) / 80, 2));
    };
    std::vector<std::int16_t> samples(recognitionRateHz / 2);
    for (std::size_t at = 0; at < samples.size(); ++at) {
        const double seconds = static_cast<double>(at) / recognitionRateHz;
        double sum = 0;
        for (int partial = 1; partial <= 45; ++partial) {
            const double hz = partial * pitchHz;
            const double loudness = resonanceAt(hz, 600) + resonanceAt(hz, 1500) + 0.01;
            sum += loudness * std::sin(2 * std::numbers::pi * hz * seconds);
        }
        samples[at] = static_cast<std::int16_t>(3000 * sum);
    }
    return samples;
}

class FrontEndTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(decoder_) << "the model is not installed"; }

    [[nodiscard]] Features hear(double resonance, std::span<const std::int16_t> sound) const {
        return decoder_->makeFrontEnd(resonance)->features(sound);
    }
    /// Of all coefficients but the first, which is the loudness.
    static double distance(const Features& one, const Features& other) {
        double sum = 0;
        for (std::size_t i = 0; i < std::min(one.values.size(), other.values.size()); ++i) {
            sum += i % one.coefficientCount == 0 ? 0 : std::pow(one.values[i] - other.values[i], 2);
        }
        return sum;
    }

    std::unique_ptr<Decoder> decoder_ = Decoder::load(ModelFiles::locate(), Decoder::Scoring::InFull);
};

TEST_F(FrontEndTest, Sound_GivesARowForEachHundredth) {
    Features features = hear(1, vowel(1));
    EXPECT_EQ(features.coefficientCount, 13);
    EXPECT_NEAR(static_cast<double>(features.rows().size()), 50, 2);
    EXPECT_EQ(features.rows()[1] - features.rows()[0], 13);
}

TEST_F(FrontEndTest, SpeakerOfAnotherSize_IsHeardAsOneOfTheUsualSize) {
    const Features usual = hear(1, vowel(1));
    for (const double factor : {0.9, 1.1}) {
        const std::vector<std::int16_t> sound = vowel(factor);
        EXPECT_LT(distance(hear(factor, sound), usual), 0.2 * distance(hear(1, sound), usual)) << factor;
    }
}

TEST_F(FrontEndTest, OtherFrontEnds_AreNotChangedByALaterOne) {
    const auto first = decoder_->makeFrontEnd(1);
    const std::vector<std::int16_t> sound = vowel(1);
    const Features before = first->features(sound);
    const Features warped = decoder_->makeFrontEnd(1.12)->features(sound);
    EXPECT_NE(warped.values, before.values);
    EXPECT_EQ(first->features(sound).values, before.values);
    EXPECT_EQ(decoder_->makeFrontEnd(1)->features(sound).values, before.values);
    // A decoder makes one of its own.
    const auto decoder = Decoder::load(ModelFiles::locate(), Decoder::Scoring::InFull);
    EXPECT_EQ(decoder->makeFrontEnd(1.12)->features(sound).values, warped.values);
}

TEST_F(FrontEndTest, SoundBefore_HasNoPartInIt) {
    const auto frontEnd = decoder_->makeFrontEnd(1);
    const std::vector<std::int16_t> sound = vowel(1);
    const Features before = frontEnd->features(sound);
    static_cast<void>(frontEnd->features(vowel(0.5)));
    EXPECT_EQ(frontEnd->features(sound).values, before.values);
}

TEST_F(FrontEndTest, VariedSound_IsLimited) {
    std::vector<std::int16_t> sound;
    for (const double factor : {0.6, 2.0, 0.6, 2.0}) {
        const std::vector<std::int16_t> one = vowel(factor);
        sound.insert(sound.end(), one.begin(), one.begin() + recognitionRateHz / 5);
    }
    const Features features = hear(1, sound);
    Features limited = features;
    limitVariance(limited);
    EXPECT_LT(distance(limited, features), 1e-3) << "there is nothing left to limit";
}

TEST_F(FrontEndTest, NoSound_GivesNothing) {
    EXPECT_TRUE(hear(1, {}).values.empty());
}

} // namespace
} // namespace brivandel
