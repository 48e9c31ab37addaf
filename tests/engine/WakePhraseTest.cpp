#include "engine/WakePhrase.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

constexpr QStringView phrase = u"hey logic";

TEST(WakePhrase, WithACommand_GivesTheCommand) {
    EXPECT_EQ(textAfterWakePhrase(u"hey logic play", phrase), u"play");
}

TEST(WakePhrase, Alone_GivesAnEmptyCommand) {
    EXPECT_EQ(textAfterWakePhrase(u"hey logic", phrase), u"");
    EXPECT_EQ(textAfterWakePhrase(u"hey logic \t ", phrase), u"");
}

TEST(WakePhrase, Twice_CountsTheLast) {
    EXPECT_EQ(textAfterWakePhrase(u"hey logic play hey logic stop", phrase), u"stop");
}

TEST(WakePhrase, NotSaid_IsStoodForByLogic) {
    EXPECT_EQ(textAfterWakePhrase(u"hey logic play", u"Hey Logic"), u"play");
    EXPECT_EQ(textAfterWakePhrase(u"a logic play", phrase), u"play");
    EXPECT_EQ(textAfterWakePhrase(u"okay studio play logic stop", u"okay studio"), u"play logic stop");
}

TEST(WakePhrase, NeitherSaid_GivesNothing) {
    EXPECT_EQ(textAfterWakePhrase(u"hey there play", u"Hey Logic"), std::nullopt);
    EXPECT_EQ(textAfterWakePhrase(u"", phrase), std::nullopt);
    EXPECT_EQ(textAfterWakePhrase(u"Logic play", phrase), std::nullopt); // transcripts come in lower case
}

TEST(WakePhrase, Empty_IsFoundNowhere) {
    EXPECT_EQ(textAfterWakePhrase(u"play", u""), std::nullopt);
    EXPECT_EQ(textAfterWakePhrase(u"hey logic play", u""), u"play");
}

TEST(WakePhrase, InsideAWord_Counts) {
    EXPECT_EQ(textAfterWakePhrase(u"that is logical play", phrase), u"al play");
}

TEST(WakePhrase, ZeroCharacter_IsNotFoundBehindTheEnd) {
    constexpr QStringView zero(u"\0", 1);
    // The literal has a zero behind its end, as every QString has.
    EXPECT_EQ(textAfterWakePhrase(u"e", zero), std::nullopt);
    EXPECT_EQ(textAfterWakePhrase({}, zero), std::nullopt);
    EXPECT_EQ(textAfterWakePhrase(QStringView(u"\0play", 5), zero), u"play");
}

TEST(WakePhrase, OuterBlanks_AreTrimmedButLineBreaksAreNot) {
    EXPECT_EQ(textAfterWakePhrase(u"hey logic \t play\t ", phrase), u"play");
    EXPECT_EQ(textAfterWakePhrase(u"hey logic \nplay\n ", phrase), u"\nplay\n");
    EXPECT_EQ(textAfterWakePhrase(u"hey logic, play", phrase), u", play");
}

} // namespace
} // namespace brivandel
