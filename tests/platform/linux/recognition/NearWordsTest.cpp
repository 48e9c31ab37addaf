#include "platform/linux/recognition/NearWords.h"

#include "platform/linux/recognition/OnePhone.h"

#include <QTemporaryFile>

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

class NearWordsTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dictionary_.open());
        dictionary_.write("start S T AA R T\n"
                          "smart S M AA R T\n"
                          "stars S T AA R Z\n"
                          "starts S T AA R T S\n"
                          "art AA R T\n"
                          "starred S T AA R D\n"
                          "stort S T AO R T\n"
                          "stirt S T IH R T\n"
                          "started S T AA R T IH D\n"
                          "tart T AA R T\n"
                          "tarte(2) T AA R T\n"
                          "play P L EY\n"
                          "plate P L EY T\n"
                          "clay K L EY\n"
                          "plays P L EY Z\n"
                          "lay L EY\n"
                          "on AA N\n"
                          "con K AA N");
        ASSERT_TRUE(dictionary_.flush());
    }

    [[nodiscard]] QStringList near(const Pronunciations& words, const QString& word) const {
        return nearWords(words, dictionary_.fileName()).value(word);
    }
    static Pronunciations start() { return {{QStringLiteral("start"), {QStringLiteral("S T AA R T")}}}; }

    QTemporaryFile dictionary_;
};

TEST_F(NearWordsTest, OnePhoneMoreOrLessOrAnother_IsNear) {
    EXPECT_THAT(near(start(), QStringLiteral("start")),
                UnorderedElementsAre(QStringLiteral("S M AA R T"), QStringLiteral("S T AA R Z"),
                                     QStringLiteral("S T IH R T"), QStringLiteral("T AA R T")));
    EXPECT_THAT(
        near({{QStringLiteral("play"), {QStringLiteral("P L EY")}}}, QStringLiteral("play")),
        UnorderedElementsAre(QStringLiteral("P L EY T"), QStringLiteral("K L EY"), QStringLiteral("L EY")));
}

TEST_F(NearWordsTest, EveryWayToSayTheWord_HasItsOwn) {
    Pronunciations words = start();
    words[QStringLiteral("start")] << QStringLiteral("S AA R T");
    EXPECT_THAT(near(words, QStringLiteral("start")),
                UnorderedElementsAre(QStringLiteral("S M AA R T"), QStringLiteral("S T AA R Z"),
                                     QStringLiteral("S T IH R T"), QStringLiteral("T AA R T"),
                                     QStringLiteral("AA R T")));
}

TEST_F(NearWordsTest, TheWordInAnotherAccentOrInThePlural_IsNotNear) {
    const QStringList words = near(start(), QStringLiteral("start"));
    for (const QString& same :
         {QStringLiteral("S T AO R T"), QStringLiteral("S T AA R D"), QStringLiteral("S T AA R T S")}) {
        EXPECT_FALSE(words.contains(same)) << qPrintable(same);
    }
}

TEST_F(NearWordsTest, WhatIsAskedForItself_IsNotNear) {
    Pronunciations words = start();
    words.insert(QStringLiteral("smart"), {QStringLiteral("S M AA R T")});
    EXPECT_FALSE(near(words, QStringLiteral("start")).contains(QStringLiteral("S M AA R T")));
}

TEST_F(NearWordsTest, TwoPhones_AreTooFew) {
    EXPECT_THAT(near({{QStringLiteral("on"), {QStringLiteral("AA N")}}}, QStringLiteral("on")), IsEmpty());
}

TEST(OnePhone, WhatIsTheSameOrFurtherApart_DoesNotDifferByOne) {
    using Phones = std::vector<int>;
    EXPECT_FALSE(differByOnePhone(Phones{1, 2, 3}, Phones{1, 2, 3}));
    EXPECT_FALSE(differByOnePhone(Phones{}, Phones{}));
    EXPECT_FALSE(differByOnePhone(Phones{1, 2, 3}, Phones{1}));
    EXPECT_FALSE(differByOnePhone(Phones{1, 2, 3}, Phones{3, 2, 1}));
    EXPECT_TRUE(differByOnePhone(Phones{1}, Phones{2}));
    EXPECT_TRUE(differByOnePhone(Phones{1}, Phones{}));
    EXPECT_TRUE(differByOnePhone(Phones{2, 3}, Phones{1, 2, 3}));
    EXPECT_TRUE(differByOnePhone(Phones{1, 2, 3}, Phones{1, 2}));
}

TEST_F(NearWordsTest, NoDictionary_HasNone) {
    EXPECT_THAT(nearWords(start(), QStringLiteral("/nowhere")).value(QStringLiteral("start")), IsEmpty());
}

} // namespace
} // namespace brivandel
