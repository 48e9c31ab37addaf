#include "platform/linux/recognition/MonoView.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace brivandel {
namespace {

constexpr std::array<float, 2> left = {0.5F, -1};
constexpr std::array<float, 2> right = {0, 1};

AudioBuffer buffer(std::span<const float* const> channels) {
    return {48000, 2, channels};
}

TEST(MonoView, OneChannel_IsThatChannel) {
    const std::array channels = {left.data()};
    const MonoView mono(buffer(channels));
    EXPECT_EQ(mono[0], 0.5F);
    EXPECT_EQ(mono[1], -1);
}

TEST(MonoView, TwoChannels_AreTheirMean) {
    const std::array channels = {left.data(), right.data()};
    const MonoView mono(buffer(channels));
    EXPECT_EQ(mono[0], 0.25F);
    EXPECT_EQ(mono[1], 0);
}

TEST(MonoView, SameSoundOnBothChannels_IsNotLouder) {
    const std::array channels = {left.data(), left.data()};
    EXPECT_EQ(MonoView(buffer(channels))[1], -1);
}

TEST(MonoView, OneChannelMissing_IsTheOther) {
    const std::array<const float*, 2> channels = {nullptr, right.data()};
    EXPECT_EQ(MonoView(buffer(channels))[1], 1);
}

TEST(MonoView, NoData_HasNoFrames) {
    const std::array<const float*, 2> channels = {nullptr, nullptr};
    EXPECT_EQ(MonoView(buffer(channels)).frameCount(), 0U);
    EXPECT_EQ(MonoView(buffer({})).frameCount(), 0U);
}

TEST(MonoView, ManyChannels_AreTheFirst) {
    const std::array channels = {left.data(), right.data(), right.data()};
    EXPECT_EQ(MonoView(buffer(channels))[0], 0.5F);
}

TEST(MonoView, SamplesThatAreNoNumbers_AreSilence) {
    constexpr std::array<float, 2> bad = {std::numeric_limits<float>::quiet_NaN(),
                                          std::numeric_limits<float>::infinity()};
    const std::array channels = {bad.data()};
    const MonoView mono(buffer(channels));
    EXPECT_EQ(mono[0], 0);
    EXPECT_EQ(mono[1], 0);
}

} // namespace
} // namespace brivandel
