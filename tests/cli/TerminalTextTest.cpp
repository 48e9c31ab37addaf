#include "cli/listen/TerminalText.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(TerminalText, TextThatFits_StaysAsItIs) {
    EXPECT_EQ(fittedTo(4, QStringLiteral("play")), QStringLiteral("play"));
    EXPECT_EQ(fittedTo(0, QString()), QString());
}

TEST(TerminalText, TextThatDoesNotFit_EndsInAnEllipsis) {
    EXPECT_EQ(fittedTo(3, QStringLiteral("play")), QStringLiteral("pl…"));
    EXPECT_EQ(fittedTo(1, QStringLiteral("play")), QStringLiteral("…"));
    EXPECT_EQ(fittedTo(0, QStringLiteral("play")), QString());
    EXPECT_EQ(fittedTo(-5, QStringLiteral("play")), QString());
}

TEST(TerminalText, WideCharacters_TakeTwoColumns) {
    const QString text = QStringLiteral("録音開始");
    EXPECT_EQ(columnsOf(text), 8);
    EXPECT_EQ(fittedTo(8, text), text);
    EXPECT_EQ(fittedTo(7, text), QStringLiteral("録音開…"));
    EXPECT_EQ(fittedTo(6, text), QStringLiteral("録音…"));
}

TEST(TerminalText, CombiningMarks_StayWithTheirCharacter) {
    const QString text = QStringLiteral("Cafe\u0301 Noir");
    EXPECT_EQ(columnsOf(text), 9);
    EXPECT_EQ(fittedTo(5, text), QStringLiteral("Cafe\u0301…"));
}

TEST(TerminalText, CharactersBeyondSixteenBits_AreNotTornApart) {
    EXPECT_EQ(columnsOf(QStringLiteral("🎹🎹")), 4);
    EXPECT_EQ(fittedTo(3, QStringLiteral("🎹🎹")), QStringLiteral("🎹…"));
}

TEST(TerminalText, LineBreaksAndEscapes_BecomeSpaces) {
    EXPECT_EQ(fittedTo(20, QStringLiteral("one\ntwo\r\x1b[2J")), QStringLiteral("one two  [2J"));
}

} // namespace
} // namespace brivandel
