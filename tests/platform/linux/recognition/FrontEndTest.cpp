#include "platform/linux/recognition/Decoder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace brivandel {
namespace {

/// Half a second of a voice on one pitch with two resonances, the first of which is given.
std::vector<std::int16_t> vowel(double firstResonanceHz) {
    constexpr int pitchHz = 100;
    const auto resonanceAt = [](double hz, double centreHz) {
        return 1 / (1 + std::pow((hz - centreHz) / 80, 2));
    };
    std::vector<std::int16_t> samples(recognitionRateHz / 2);
    for (std::size_t at = 0; at < samples.size(); ++at) {
        const double seconds = static_cast<double>(at) / recognitionRateHz;
        double sum = 0;
        for (int hz = pitchHz; hz < 5000; hz += pitchHz) {
            const double loudness =
                resonanceAt(hz, firstResonanceHz) + resonanceAt(hz, 2.5 * firstResonanceHz) + 0.01;
            sum += loudness * std::sin(2 * std::numbers::pi * hz * seconds);
        }
        samples[at] = static_cast<std::int16_t>(3000 * sum);
    }
    return samples;
}

class FrontEndTest : public testing::Test {
protected:
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
    Features features = hear(1, vowel(600));
    EXPECT_EQ(features.coefficientCount, 13);
    EXPECT_NEAR(static_cast<double>(features.rows().size()), 50, 2);
    EXPECT_EQ(features.rows()[1] - features.rows()[0], 13);
}

TEST_F(FrontEndTest, SmallerSpeaker_IsHeardAsOneOfTheUsualSize) {
    const Features usual = hear(1, vowel(600));
    const std::vector<std::int16_t> small = vowel(1.12 * 600);
    const std::vector<std::int16_t> large = vowel(0.88 * 600);
    EXPECT_LT(distance(hear(1.12, small), usual), 0.5 * distance(hear(1, small), usual));
    EXPECT_LT(distance(hear(0.88, large), usual), 0.5 * distance(hear(1, large), usual));
}

TEST_F(FrontEndTest, OtherFrontEnds_AreNotChangedByALaterOne) {
    const auto first = decoder_->makeFrontEnd(1);
    const std::vector<std::int16_t> sound = vowel(600);
    const Features before = first->features(sound);
    const auto other = decoder_->makeFrontEnd(1.12);
    EXPECT_EQ(first->features(sound).values, before.values);
    EXPECT_EQ(decoder_->makeFrontEnd(1)->features(sound).values, before.values);
}

TEST_F(FrontEndTest, SoundBefore_HasNoPartInIt) {
    const auto frontEnd = decoder_->makeFrontEnd(1);
    const std::vector<std::int16_t> sound = vowel(600);
    const Features before = frontEnd->features(sound);
    static_cast<void>(frontEnd->features(vowel(300)));
    EXPECT_EQ(frontEnd->features(sound).values, before.values);
}

TEST_F(FrontEndTest, NoSound_GivesNothing) {
    EXPECT_LE(hear(1, {}).values.size(), 13U);
}

} // namespace
} // namespace brivandel
