#include "platform/linux/recognition/LetterToSound.h"

#include <gtest/gtest.h>

#include <thread>

namespace brivandel {
namespace {

TEST(LetterToSound, StressAndLength_AreNotPhones) {
    EXPECT_EQ(phonesFromIpa(u"mˈɛtɹənˌoʊm"), QStringLiteral("M EH T R AH N OW M"));
}

TEST(LetterToSound, TwoLetterSounds_AreOnePhone) {
    EXPECT_EQ(phonesFromIpa(u"tʃˈeɪndʒ"), QStringLiteral("CH EY N JH"));
}

TEST(LetterToSound, MarksOfOtherLanguages_AreSkipped) {
    EXPECT_EQ(phonesFromIpa(u"(fr)bˈɔ̃(en)"), QStringLiteral("B AO"));
    EXPECT_EQ(phonesFromIpa(u"(fr"), QString());
}

TEST(LetterToSound, UnknownWord_IsReadByRule) {
    EXPECT_EQ(phonesByRule(QStringLiteral("quantize")), QStringLiteral("K W AA N T AY Z"));
    EXPECT_EQ(phonesByRule(QStringLiteral("synth")), QStringLiteral("S IH N TH"));
}

TEST(LetterToSound, LettersThatAreNotLatin_HaveNoPhones) {
    EXPECT_EQ(phonesByRule(QStringLiteral("音楽")), QString());
    EXPECT_EQ(phonesByRule(QStringLiteral("стоп")), QString());
    EXPECT_EQ(phonesByRule(QString()), QString());
}

TEST(LetterToSound, AskedByTwoThreads_AnswersBoth) {
    const auto ask = [] {
        for (int i = 0; i < 50; ++i) {
            EXPECT_EQ(phonesByRule(QStringLiteral("synth")), QStringLiteral("S IH N TH"));
        }
    };
    std::thread other(ask);
    ask();
    other.join();
}

} // namespace
} // namespace brivandel
