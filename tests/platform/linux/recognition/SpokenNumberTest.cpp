#include "platform/linux/recognition/SpokenNumber.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

std::optional<SpokenNumber> spoken(const QString& words) {
    std::optional<SpokenNumber> number = SpokenNumber();
    for (const QString& word : words.split(u' ')) {
        number = number->followedBy(word);
        if (!number) {
            break;
        }
    }
    return number;
}

struct Said {
    const char16_t* words;
    int value;
};

class SpokenNumberValue : public testing::TestWithParam<Said> {};

TEST_P(SpokenNumberValue, SaidInAUsualWay_IsThatNumber) {
    const auto number = spoken(QString::fromUtf16(GetParam().words));
    ASSERT_TRUE(number);
    EXPECT_TRUE(number->isWhole());
    EXPECT_EQ(number->value(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Spoken, SpokenNumberValue,
                         testing::Values(Said{u"zero", 0}, Said{u"seven", 7}, Said{u"twelve", 12},
                                         Said{u"twenty", 20}, Said{u"twenty five", 25},
                                         Said{u"one twelve", 112}, Said{u"one hundred and twelve", 112},
                                         Said{u"one hundred twelve", 112}, Said{u"a hundred and twelve", 112},
                                         Said{u"one one two", 112}, Said{u"one oh five", 105},
                                         Said{u"one zero five", 105}, Said{u"two fifty", 250},
                                         Said{u"nine ninety nine", 999}, Said{u"nine hundred", 900},
                                         Said{u"ten twenty four", 1024}, Said{u"twelve hundred", 1200},
                                         Said{u"ten oh four", 1004}, Said{u"two thousand and three", 2003},
                                         Said{u"one thousand two hundred and thirty four", 1234},
                                         Said{u"nine nine nine nine", 9999}, Said{u"a thousand", 1000}));

TEST(SpokenNumber, EveryNumberInEveryUsualWay_IsReadBackAsItself) {
    for (int number = 0; number <= 9999; ++number) {
        const auto ways = SpokenNumber::waysToSay(number);
        ASSERT_FALSE(ways.isEmpty()) << number;
        for (const QStringList& way : ways) {
            const auto read = spoken(way.join(u' '));
            ASSERT_TRUE(read && read->isWhole()) << number << " as " << qPrintable(way.join(u' '));
            ASSERT_EQ(read->value(), number) << qPrintable(way.join(u' '));
        }
    }
}

TEST(SpokenNumber, WordsThatMakeNoNumber_AreRefused) {
    for (const QStringView words : std::initializer_list<QStringView>{
             u"twenty eleven hundred", u"hundred", u"oh five", u"five and", u"one one one one one",
             u"twenty five six", u"twenty one oh one", u"play", u"zero one"}) {
        EXPECT_FALSE(spoken(words.toString())) << qPrintable(words.toString());
    }
}

TEST(SpokenNumber, BrokenOff_IsNotWhole) {
    for (const QStringView words : std::initializer_list<QStringView>{u"a", u"one hundred and", u"ten oh"}) {
        const auto number = spoken(words.toString());
        ASSERT_TRUE(number);
        EXPECT_FALSE(number->isWhole()) << qPrintable(words.toString());
    }
}

TEST(SpokenNumber, OutsideItsBounds_HasNoWayToBeSaid) {
    EXPECT_TRUE(SpokenNumber::waysToSay(-1).isEmpty());
    EXPECT_TRUE(SpokenNumber::waysToSay(10000).isEmpty());
}

} // namespace
} // namespace brivandel
