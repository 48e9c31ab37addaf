#include "engine/BarNumberParser.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

std::optional<std::int64_t> extract(QStringView text) {
    return BarNumberParser().extractBarNumber(text);
}

TEST(BarNumber, Digits_AreRead) {
    EXPECT_EQ(extract(u"go to bar 12"), 12);
    EXPECT_EQ(extract(u"play from bar 7"), 7);
    EXPECT_EQ(extract(u"go to bar 0"), 0);
    EXPECT_EQ(extract(u"go to bar 9999"), 9999);
    EXPECT_EQ(extract(u"bar 007"), 7);
    EXPECT_EQ(extract(u"bar \t\n 5"), 5);
    EXPECT_EQ(extract(u"bar 5, please"), 5);
}

TEST(BarNumber, TheFirstBar_Counts) {
    EXPECT_EQ(extract(u"bar 12 and bar 14"), 12);
    EXPECT_EQ(extract(u"bar five bar 7"), 7); // digits are looked for first
    EXPECT_EQ(extract(u"bar please now bar five"), std::nullopt);
}

TEST(BarNumber, NoWordBoundary_IsNoBar) {
    EXPECT_EQ(extract(u"bar12"), std::nullopt);
    EXPECT_EQ(extract(u"crowbar 5"), std::nullopt);
    EXPECT_EQ(extract(u"bar 5th"), std::nullopt);
    EXPECT_EQ(extract(u"handlebar five"), std::nullopt);
    EXPECT_EQ(extract(u"BAR 5"), std::nullopt);
}

TEST(BarNumber, CombiningMark_BelongsToItsWord) {
    EXPECT_EQ(extract(u"e\u0301bar 5"), std::nullopt);
    EXPECT_EQ(extract(u"\u00e9bar 5"), std::nullopt);
    EXPECT_EQ(extract(u"-bar 5"), 5);
}

TEST(BarNumber, DigitsOfOtherScripts_AreNoNumberButCount) {
    EXPECT_EQ(extract(u"bar \u0665"), std::nullopt);
    EXPECT_EQ(extract(u"bar \u0665 bar 12"), std::nullopt);
    EXPECT_EQ(extract(u"bar \uff15"), std::nullopt);
    EXPECT_EQ(extract(u"bar 1\u0665"), std::nullopt);
}

TEST(BarNumber, DigitsBeyond64Bits_AreNoNumber) {
    EXPECT_EQ(extract(u"bar 9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(extract(u"bar 9223372036854775808"), std::nullopt);
    EXPECT_EQ(extract(u"bar 99999999999999999999 or bar five"), 5); // then the words are looked at
}

TEST(BarNumber, Words_AreRead) {
    EXPECT_EQ(extract(u"go to bar five"), 5);
    EXPECT_EQ(extract(u"go to bar thirteen"), 13);
    EXPECT_EQ(extract(u"go to bar twenty"), 20);
    EXPECT_EQ(extract(u"go to bar twenty one"), 21);
    EXPECT_EQ(extract(u"bar ninety nineteen"), 109);
    EXPECT_EQ(extract(u"bar twenty zero"), 20);
    EXPECT_EQ(extract(u"bar twenty  one"), 21);
}

TEST(BarNumber, TwoWordsThatAreNoNumber_AreNone) {
    EXPECT_EQ(extract(u"go to bar five please"), std::nullopt);
    EXPECT_EQ(extract(u"go to bar one two"), std::nullopt);
    EXPECT_EQ(extract(u"bar twenty thirty"), std::nullopt);
    EXPECT_EQ(extract(u"go to bar one hundred"), std::nullopt);
    EXPECT_EQ(extract(u"bar for"), std::nullopt);
    EXPECT_EQ(extract(u"bar twenty\tone"), std::nullopt);
}

TEST(BarNumber, ThirdWord_IsNotLookedAt) {
    EXPECT_EQ(extract(u"bar twenty one please"), 21);
    EXPECT_EQ(extract(u"go to bar five. please"), 5);
}

TEST(BarNumber, HyphenatedWord_EndsAtTheHyphen) {
    EXPECT_EQ(extract(u"bar twenty-one"), 20); // the hyphen is a word boundary
}

TEST(BarNumber, NoBar_IsNone) {
    EXPECT_EQ(extract(u"play"), std::nullopt);
    EXPECT_EQ(extract(u""), std::nullopt);
    EXPECT_EQ(extract(u"bar"), std::nullopt);
    EXPECT_EQ(extract(u"bar "), std::nullopt);
}

TEST(BarNumber, SameParser_GivesTheSameAgain) {
    const BarNumberParser parser;
    EXPECT_EQ(parser.extractBarNumber(u"bar 12"), 12);
    EXPECT_EQ(parser.extractBarNumber(u"bar five please"), std::nullopt);
    EXPECT_EQ(parser.extractBarNumber(u"bar 12"), 12);
}

TEST(BarNumber, LongBlank_IsNoDanger) {
    EXPECT_EQ(extract(QString(QStringLiteral("bar") + QString(100'000, u' ') + u'5')), 5);
    EXPECT_EQ(extract(QString(QStringLiteral("bar ")).repeated(50'000)), std::nullopt);
}

TEST(WordToNumber, EveryWord_HasItsValue) {
    const QStringList units =
        QStringLiteral("zero one two three four five six seven eight nine ten eleven twelve thirteen "
                       "fourteen fifteen sixteen seventeen eighteen nineteen")
            .split(u' ');
    const QStringList tens =
        QStringLiteral("twenty thirty forty fifty sixty seventy eighty ninety").split(u' ');
    for (qsizetype unit = 0; unit < units.size(); ++unit) {
        EXPECT_EQ(wordToNumber(units[unit]), unit);
    }
    for (qsizetype ten = 0; ten < tens.size(); ++ten) {
        EXPECT_EQ(wordToNumber(tens[ten]), (ten + 2) * 10);
        for (qsizetype unit = 0; unit < units.size(); ++unit) {
            EXPECT_EQ(wordToNumber(QString(tens[ten] + u' ' + units[unit])), (ten + 2) * 10 + unit);
        }
    }
}

TEST(WordToNumber, OtherPieces_AreNoNumber) {
    EXPECT_EQ(wordToNumber(u""), std::nullopt);
    EXPECT_EQ(wordToNumber(u"  "), std::nullopt);
    EXPECT_EQ(wordToNumber(u"five six"), std::nullopt);
    EXPECT_EQ(wordToNumber(u"twenty one two"), std::nullopt);
    EXPECT_EQ(wordToNumber(u"twenty-one"), std::nullopt);
    EXPECT_EQ(wordToNumber(u" Twenty  ONE "), 21);
}

} // namespace
} // namespace brivandel
