#include "platform/linux/recognition/Endpointer.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>
#include <vector>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class EndpointerTest : public testing::Test {
protected:
    /// White noise of that loudness below full scale; -100 is digital silence with its dither.
    std::vector<Endpointer::Change> hear(double decibels, std::chrono::milliseconds time) {
        std::vector<Endpointer::Change> changes;
        std::normal_distribution<double> noise(0, 32768 * std::pow(10, decibels / 20));
        for (auto heard = 0ms; heard < time; heard += frameLength) {
            std::array<std::int16_t, samplesPerFrame> frame{};
            for (std::int16_t& sample : frame) {
                sample =
                    static_cast<std::int16_t>(std::lround(std::clamp(noise(random_), -32768.0, 32767.0)));
            }
            const auto change = endpointer_.push(frame, frame);
            if (change != Endpointer::Change::None) {
                changes.push_back(change);
            }
        }
        return changes;
    }

    Endpointer endpointer_;
    std::minstd_rand random_{7};
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

TEST_F(EndpointerTest, SteadyNoise_NeverOpensOnceItIsTheFloor) {
    hear(-50, 3s);
    EXPECT_THAT(hear(-50, 30s), testing::IsEmpty());
}

} // namespace
} // namespace brivandel
