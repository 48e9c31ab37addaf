#include "engine/BarNavigation.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

const QByteArray goToBar = "tell application \"Logic Pro\" to activate\n"
                           "delay 0.3\n"
                           "tell application \"System Events\"\n"
                           "    tell process \"Logic Pro\"\n"
                           "        key code 44\n"
                           "        delay 0.5\n"
                           "        keystroke \"12\"\n"
                           "        delay 0.1\n"
                           "        key code 36\n"
                           "    end tell\n"
                           "end tell";

QByteArray withBar(const QByteArray& script, const QByteArray& bar) {
    return QByteArray(script).replace("\"12\"", '"' + bar + '"');
}

TEST(BarNavigationScript, GoToBar_IsTheSameToTheByte) {
    EXPECT_EQ(barNavigationScript({12, false}).toUtf8(), goToBar);
    EXPECT_EQ(barNavigationScript({7, false}).toUtf8(), withBar(goToBar, "7"));
}

TEST(BarNavigationScript, PlayFromBar_PlaysAfterTheBlock) {
    const QByteArray play = goToBar + "\ndelay 0.2\nkeystroke \" \"";
    EXPECT_EQ(barNavigationScript({12, true}).toUtf8(), play);
    EXPECT_EQ(barNavigationScript({0, true}).toUtf8(), withBar(play, "0"));
}

TEST(BarNavigationScript, LargestBar_IsWrittenInFull) {
    EXPECT_EQ(barNavigationScript({std::numeric_limits<std::int64_t>::max(), false}).toUtf8(),
              withBar(goToBar, "9223372036854775807"));
}

TEST(BarNavigationLabel, SaysWhetherItPlays) {
    EXPECT_EQ(barNavigationLabel({7, false}), QStringLiteral("Go to bar 7"));
    EXPECT_EQ(barNavigationLabel({7, true}), QStringLiteral("Play from bar 7"));
}

} // namespace
} // namespace brivandel
