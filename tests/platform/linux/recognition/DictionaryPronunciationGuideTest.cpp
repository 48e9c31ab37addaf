#include "platform/linux/recognition/DictionaryPronunciationGuide.h"

#include "platform/linux/recognition/ModelFiles.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

QList<ExpectedWord> expected(const QString& phrase) {
    return DictionaryPronunciationGuide(ModelFiles::locate().dictionary).expect({phrase}).value(phrase);
}

TEST(DictionaryPronunciationGuide, WordsOfTheDictionary_AreAsItHasThem) {
    const auto words = expected(QStringLiteral("play that"));
    ASSERT_EQ(words.size(), 2);
    EXPECT_EQ(words[0].word, QStringLiteral("play"));
    EXPECT_EQ(words[0].phones, QStringLiteral("P L EY"));
    EXPECT_TRUE(words[0].isInDictionary);
    EXPECT_TRUE(words[1].isInDictionary);
}

TEST(DictionaryPronunciationGuide, AWordOfNoDictionary_IsReadByRule) {
    const auto words = expected(QStringLiteral("quantize"));
    ASSERT_EQ(words.size(), 1);
    EXPECT_FALSE(words[0].isInDictionary);
    EXPECT_TRUE(words[0].phones.startsWith(QStringLiteral("K W"))) << words[0].phones.toStdString();
}

TEST(DictionaryPronunciationGuide, Digits_AreSaidAsNumbers) {
    const auto words = expected(QStringLiteral("marker 2"));
    ASSERT_EQ(words.size(), 2);
    EXPECT_EQ(words[1].word, QStringLiteral("two"));
}

TEST(DictionaryPronunciationGuide, AWordThatCannotBePronounced_HasNoPhones) {
    const auto words = expected(QStringLiteral("стоп"));
    ASSERT_EQ(words.size(), 1);
    EXPECT_EQ(words[0].phones, QString());
    EXPECT_FALSE(words[0].isInDictionary);
}

TEST(DictionaryPronunciationGuide, WithoutLettersAndDigits_NothingIsKnown) {
    EXPECT_TRUE(expected(QStringLiteral("!?")).isEmpty());
}

TEST(DictionaryPronunciationGuide, WithoutADictionary_WordsAreReadByRule) {
    const auto words = DictionaryPronunciationGuide(QStringLiteral("/nowhere"))
                           .expect({QStringLiteral("play")})
                           .value(QStringLiteral("play"));
    ASSERT_EQ(words.size(), 1);
    EXPECT_FALSE(words[0].isInDictionary);
}

} // namespace
} // namespace brivandel
