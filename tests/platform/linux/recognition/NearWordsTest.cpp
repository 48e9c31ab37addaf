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
                          "star's S T AA R Z\n"
                          "play P L EY\n"
                          "plate P L EY T\n"
                          "clay K L EY\n"
                          "plays P L EY Z\n"
                          "lay L EY\n"
                          "lay(2) L AY\n"
                          "on AA N\n"
                          "con K AA N");
        ASSERT_TRUE(dictionary_.flush());
    }

    [[nodiscard]] QStringList near(const Pronunciations& words) const { return near(words, words); }
    [[nodiscard]] QStringList near(const Pronunciations& words, const Pronunciations& known) const {
        return nearWords(words, known, dictionary_.fileName()).keys();
    }
    static Pronunciations start() { return {{QStringLiteral("start"), {QStringLiteral("S T AA R T")}}}; }
    static Pronunciations play() { return {{QStringLiteral("play"), {QStringLiteral("P L EY")}}}; }

    QTemporaryFile dictionary_;
};

TEST_F(NearWordsTest, OnePhoneMoreOrLessOrAnother_IsNear) {
    EXPECT_THAT(near(start()), UnorderedElementsAre(QStringLiteral("smart"), QStringLiteral("stars"),
                                                    QStringLiteral("stirt"), QStringLiteral("tart")));
    EXPECT_THAT(near(play()),
                UnorderedElementsAre(QStringLiteral("plate"), QStringLiteral("clay"), QStringLiteral("lay")));
}

TEST_F(NearWordsTest, WordOfTwoWays_IsNearInTheOneThatIs) {
    EXPECT_EQ(nearWords(play(), play(), dictionary_.fileName()).value(QStringLiteral("lay")),
              QStringList{QStringLiteral("L EY")});
}

TEST_F(NearWordsTest, EveryWayToSayTheWord_HasItsOwn) {
    Pronunciations words = start();
    words[QStringLiteral("start")] << QStringLiteral("S AA R T");
    EXPECT_THAT(near(words), testing::Contains(QStringLiteral("art")));
}

TEST_F(NearWordsTest, TheWordInAnotherAccentOrInThePlural_IsNotNear) {
    const QStringList words = near(start());
    for (const QString& same :
         {QStringLiteral("stort"), QStringLiteral("starred"), QStringLiteral("starts")}) {
        EXPECT_FALSE(words.contains(same)) << qPrintable(same);
    }
}

TEST_F(NearWordsTest, WhatIsKnownOrSoundsLikeIt_IsLeftOut) {
    Pronunciations known = start();
    known.insert(QStringLiteral("smart"), {QStringLiteral("S M AA T")});
    known.insert(QStringLiteral("tahrt"), {QStringLiteral("T AA R T")});
    EXPECT_THAT(near(start(), known), UnorderedElementsAre(QStringLiteral("stars"), QStringLiteral("stirt")));
}

TEST_F(NearWordsTest, TwoPhones_AreTooFew) {
    EXPECT_THAT(near({{QStringLiteral("on"), {QStringLiteral("AA N")}}}), IsEmpty());
}

TEST_F(NearWordsTest, NoDictionary_HasNone) {
    EXPECT_THAT(nearWords(start(), start(), QStringLiteral("/nowhere")), IsEmpty());
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

} // namespace
} // namespace brivandel
