#include "widgets/Colors.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

// What WCAG 2.1 asks of text of this size (AA).
constexpr double readable = 4.5;

class Contrast : public testing::TestWithParam<std::tuple<NamedColor, Appearance>> {};

TEST_P(Contrast, TextOnWindow_IsReadable) {
    const auto [name, appearance] = GetParam();
    const QPalette palette = paletteFor(appearance);
    EXPECT_GE(contrastRatio(color(name, appearance), palette.color(QPalette::Window)), readable);
    EXPECT_GE(contrastRatio(color(name, appearance), palette.color(QPalette::Base)), readable);
}

TEST_P(Contrast, WhiteOnPlate_IsReadable) {
    const auto [name, appearance] = GetParam();
    EXPECT_GE(contrastRatio(Qt::white, fillColor(name, appearance)), readable);
}

INSTANTIATE_TEST_SUITE_P(
    Colors, Contrast,
    testing::Combine(testing::Values(NamedColor::Primary, NamedColor::Secondary, NamedColor::Accent,
                                     NamedColor::Gray, NamedColor::Red, NamedColor::Orange, NamedColor::Green,
                                     NamedColor::Blue, NamedColor::Purple, NamedColor::Pink),
                     testing::Values(Appearance::Light, Appearance::Dark)));

TEST(Contrast, OfBlackAndWhite_IsTheLargest) {
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::white), 1, 0.01);
}

TEST(Appearance, OfItsOwnPalette_IsItself) {
    EXPECT_EQ(appearanceOf(paletteFor(Appearance::Light)), Appearance::Light);
    EXPECT_EQ(appearanceOf(paletteFor(Appearance::Dark)), Appearance::Dark);
}

} // namespace
} // namespace brivandel
