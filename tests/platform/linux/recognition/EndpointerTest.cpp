#include "platform/linux/recognition/Endpointer.h"

#include "platform/linux/recognition/Signals.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class EndpointerTest : public testing::Test {
protected:
    /// White noise of that loudness below full scale; -100 is digital silence with its dither.
    std::vector<Endpointer::Change> hear(double decibels, std::chrono::milliseconds time) {
        return hear(decibels, decibels, time);
    }
    std::vector<Endpointer::Change> hear(double asHeard, double withoutNoise,
                                         std::chrono::milliseconds time) {
        std::vector<Endpointer::Change> changes;
        for (auto heard = 0ms; heard < time; heard += frameLength) {
            Samples both = whiteNoise(asHeard, frameLength, ++seed_);
            Samples cleaned = whiteNoise(withoutNoise, frameLength, seed_);
            // No frame is loud by the step from the one before.
            both.back() = 0;
            cleaned.back() = 0;
            const auto change = endpointer_.push(std::span<const std::int16_t, samplesPerFrame>(both),
                                                 std::span<const std::int16_t, samplesPerFrame>(cleaned));
            if (change != Endpointer::Change::None) {
                changes.push_back(change);
            }
        }
        return changes;
    }

    Endpointer endpointer_;
    unsigned seed_ = 0;
};

constexpr auto begin = Endpointer::Change::Begin;
constexpr auto end = Endpointer::Change::End;

TEST_F(EndpointerTest, Silence_IsNoUtterance) {
    EXPECT_THAT(hear(-90, 5s), testing::IsEmpty());
}

TEST_F(EndpointerTest, SoundAtOnce_BeginsAnUtterance) {
    EXPECT_THAT(hear(-20, 60ms), testing::ElementsAre(begin));
}

TEST_F(EndpointerTest, Click_IsTooShort) {
    hear(-70, 1s);
    EXPECT_THAT(hear(-20, 20ms), testing::IsEmpty());
    EXPECT_THAT(hear(-70, 1s), testing::IsEmpty());
}

TEST_F(EndpointerTest, Utterance_EndsAfterTheHangover) {
    hear(-70, 1s);
    EXPECT_THAT(hear(-20, 500ms), testing::ElementsAre(begin));
    EXPECT_THAT(hear(-70, Endpointer::hangover - 10ms), testing::IsEmpty());
    EXPECT_TRUE(endpointer_.inUtterance());
    EXPECT_THAT(hear(-70, 10ms), testing::ElementsAre(end));
}

TEST_F(EndpointerTest, ShortGap_DoesNotEndIt) {
    hear(-20, 500ms);
    hear(-90, 200ms);
    EXPECT_EQ(endpointer_.silence(), 200ms);
    EXPECT_THAT(hear(-20, 100ms), testing::IsEmpty());
    EXPECT_EQ(endpointer_.silence(), 0ms);
}

TEST_F(EndpointerTest, NoiseThatIsSwitchedOn_IsTheNewSilenceSoon) {
    hear(-70, 2s);
    EXPECT_THAT(hear(-40, 3s), testing::ElementsAre(begin, end));
    EXPECT_THAT(hear(-25, 200ms), testing::ElementsAre(begin)) << "speech over the noise";
}

TEST_F(EndpointerTest, NoiseThatIsSwitchedOff_LeavesTheFloorLowAtOnce) {
    hear(-40, 3s);
    hear(-70, 300ms);
    EXPECT_THAT(hear(-50, 200ms), testing::ElementsAre(begin));
}

TEST_F(EndpointerTest, VoiceLittleLouderThanTheNoise_IsHeardWhereTheNoiseIsTakenAway) {
    hear(-40, -60, 3s);
    EXPECT_THAT(hear(-36, -38, 200ms), testing::ElementsAre(begin));
    EXPECT_THAT(hear(-40, -60, Endpointer::hangover), testing::ElementsAre(end));
}

TEST_F(EndpointerTest, SoftSoundThatIsTakenForNoise_IsHeardAllTheSame) {
    hear(-70, -80, 1s);
    EXPECT_THAT(hear(-20, 200ms), testing::ElementsAre(begin));
    EXPECT_THAT(hear(-50, -80, 1s), testing::IsEmpty()) << "the end of a word";
    EXPECT_THAT(hear(-70, -80, Endpointer::hangover), testing::ElementsAre(end));
}

TEST_F(EndpointerTest, SteadyNoise_NeverOpensOnceItIsTheFloor) {
    hear(-50, 3s);
    EXPECT_THAT(hear(-50, 30s), testing::IsEmpty());
}

} // namespace
} // namespace brivandel
