#include "platform/linux/recognition/SteadyNoise.h"

#include "platform/linux/recognition/Signals.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

TEST(SteadyNoise, IsThereWhereWordsAreLittleLouderThanIt) {
    EXPECT_FALSE(isInSteadyNoise(sum(vowels(800ms), whiteNoise(-70, 800ms))));
    EXPECT_TRUE(isInSteadyNoise(sum(vowels(800ms), whiteNoise(-35, 800ms))));
    // Whoever speaks from far away has the quiet room as loud as that.
    EXPECT_TRUE(isInSteadyNoise(sum(quieter(vowels(800ms), 50), whiteNoise(-70, 800ms))));
}

TEST(SteadyNoise, MusicIsNone) {
    EXPECT_FALSE(isInSteadyNoise(sum(notes(800ms), whiteNoise(-70, 800ms))));
    // As loud as they are in the mean.
    EXPECT_TRUE(isInSteadyNoise(whiteNoise(decibelsOf(notes(800ms)), 800ms)));
}

TEST(SteadyNoise, NothingIsNone) {
    EXPECT_FALSE(isInSteadyNoise({}));
}

} // namespace
} // namespace brivandel
