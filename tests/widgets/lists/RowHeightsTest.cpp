#include "widgets/RowHeights.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(RowHeights, NoRows_HaveNoHeight) {
    RowHeights heights;
    EXPECT_EQ(heights.rowCount(), 0);
    EXPECT_EQ(heights.top(0), 0);
    EXPECT_EQ(heights.rowAt(0), -1);
}

TEST(RowHeights, FirstMeasure_IsTheEstimateOfTheOthers) {
    RowHeights heights;
    heights.reset(10);
    heights.setHeight(3, 20);
    EXPECT_EQ(heights.top(10), 200);
    heights.setHeight(4, 50);
    EXPECT_EQ(heights.top(10), 230);
    EXPECT_EQ(heights.top(4), 80);
    EXPECT_EQ(heights.top(5), 130);
    EXPECT_TRUE(heights.isMeasured(4));
    EXPECT_FALSE(heights.isMeasured(5));
}

TEST(RowHeights, RowAt_IsTheRowOfThePlace) {
    RowHeights heights;
    heights.reset(3);
    heights.setHeight(0, 10);
    heights.setHeight(1, 30);
    EXPECT_EQ(heights.rowAt(-5), 0);
    EXPECT_EQ(heights.rowAt(9), 0);
    EXPECT_EQ(heights.rowAt(10), 1);
    EXPECT_EQ(heights.rowAt(39), 1);
    EXPECT_EQ(heights.rowAt(40), 2);
    EXPECT_EQ(heights.rowAt(5000), 2);
}

TEST(RowHeights, Resize_KeepsWhatIsMeasured) {
    RowHeights heights;
    heights.reset(3);
    heights.setHeight(0, 10);
    heights.setHeight(2, 30);
    EXPECT_EQ(heights.top(3), 50);
    heights.resize(4);
    EXPECT_EQ(heights.top(4), 60);
    heights.resize(1);
    EXPECT_EQ(heights.top(1), 10);
    heights.resize(3);
    EXPECT_EQ(heights.top(3), 30) << "the third is not measured any more";
}

} // namespace
} // namespace brivandel
