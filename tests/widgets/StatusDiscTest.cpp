#include "widgets/StatusDisc.h"

#include <QAccessible>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(StatusDisc, AtRest_HasItsOwnSizeAndFaintShadows) {
    StatusDisc disc;
    disc.setLevel(0.7);
    EXPECT_EQ(disc.scale(), 1);
    EXPECT_EQ(disc.firstShadow().opacity, 0.2);
    EXPECT_EQ(disc.firstShadow().radius, 3);
    EXPECT_EQ(disc.secondShadow().opacity, 0.05);
    EXPECT_EQ(disc.secondShadow().radius, 5);
}

TEST(StatusDisc, LiveInSilence_HasTheSmallestGlow) {
    StatusDisc disc;
    disc.setIsLive(true);
    EXPECT_EQ(disc.scale(), 1);
    EXPECT_DOUBLE_EQ(disc.firstShadow().opacity, 0.6);
    EXPECT_DOUBLE_EQ(disc.firstShadow().radius, 4);
    EXPECT_DOUBLE_EQ(disc.secondShadow().opacity, 0.2);
    EXPECT_DOUBLE_EQ(disc.secondShadow().radius, 8);
}

TEST(StatusDisc, LiveAtFullLevel_IsLargest) {
    StatusDisc disc;
    disc.setIsLive(true);
    disc.setLevel(1);
    EXPECT_DOUBLE_EQ(disc.scale(), 1.18);
    EXPECT_DOUBLE_EQ(disc.firstShadow().opacity, 1.0);
    EXPECT_DOUBLE_EQ(disc.firstShadow().radius, 14);
    EXPECT_DOUBLE_EQ(disc.secondShadow().opacity, 0.5);
    EXPECT_DOUBLE_EQ(disc.secondShadow().radius, 22);
}

TEST(StatusDisc, AtItsLargest_IsNotCutOff) {
    StatusDisc disc;
    disc.setIsLive(true);
    disc.setLevel(1);
    const double reach = StatusDisc::restingDiameter / 2.0 * disc.scale() + disc.secondShadow().radius;
    EXPECT_GE(disc.sizeHint().width(), 2 * reach);
}

TEST(StatusDisc, ToAssistiveTechnology_IsAPictureWithAName) {
    StatusDisc disc;
    disc.setStatus(NamedColor::Green, QStringLiteral("mic.fill"), QStringLiteral("Listening"));
    const auto* accessible = QAccessible::queryAccessibleInterface(&disc);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Graphic);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Listening"));
}

} // namespace
} // namespace brivandel
