#include "platform/linux/recognition/SpokenForms.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

QStringList joined(const QString& phrase) {
    QStringList result;
    for (const QStringList& form : spokenForms(phrase)) {
        result << form.join(u' ');
    }
    return result;
}

TEST(SpokenForms, Punctuation_IsNotSaid) {
    EXPECT_EQ(joined(QStringLiteral("Go, to: the (chorus)!")),
              QStringList{QStringLiteral("go to the chorus")});
}

TEST(SpokenForms, Symbols_AreSaidByName) {
    EXPECT_EQ(joined(QStringLiteral("drums & bass +1")),
              QStringList{QStringLiteral("drums and bass plus one")});
}

TEST(SpokenForms, Apostrophes_StayInsideWordsOnly) {
    EXPECT_EQ(joined(QStringLiteral("’don’t stop’")), QStringList{QStringLiteral("don't stop")});
}

TEST(SpokenForms, Digits_AreSaidInEveryUsualWay) {
    EXPECT_THAT(joined(QStringLiteral("add 808")),
                testing::IsSupersetOf({QStringLiteral("add eight oh eight"),
                                       QStringLiteral("add eight hundred eight"),
                                       QStringLiteral("add eight hundred and eight")}));
}

TEST(SpokenForms, DigitsInAWord_AreWordsOfTheirOwn) {
    EXPECT_EQ(joined(QStringLiteral("mp3")), QStringList{QStringLiteral("mp three")});
}

TEST(SpokenForms, ManyNumbers_MakeNoMoreThanEightForms) {
    EXPECT_EQ(spokenForms(QStringLiteral("808 909 707 606 505")).size(), 8);
}

TEST(SpokenForms, LongDigits_AreSaidOneByOne) {
    EXPECT_EQ(joined(QStringLiteral("20251")), QStringList{QStringLiteral("two zero two five one")});
    EXPECT_EQ(joined(QStringLiteral("007")), QStringList{QStringLiteral("zero zero seven")});
}

TEST(SpokenForms, DigitsOfOtherScripts_AreDigits) {
    EXPECT_EQ(joined(QStringLiteral("track ٣")), QStringList{QStringLiteral("track three")});
}

TEST(SpokenForms, NothingToSay_HasNoForm) {
    for (const QStringView phrase : std::initializer_list<QStringView>{u"", u"   ", u"!?…", u"🎸", u"'"}) {
        EXPECT_TRUE(spokenForms(phrase.toString()).isEmpty()) << qPrintable(phrase.toString());
    }
}

} // namespace
} // namespace brivandel
