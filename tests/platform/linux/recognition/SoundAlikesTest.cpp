#include "platform/linux/recognition/SoundAlikes.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

class SoundAlikesTest : public testing::Test {
protected:
    void add(const QString& phrase) { finder_.add(phrase, phrase.split(u' ')); }

    Pronunciations pronunciations_ = {
        {QStringLiteral("click"), {QStringLiteral("K L IH K")}},
        {QStringLiteral("on"), {QStringLiteral("AA N"), QStringLiteral("AO N")}},
        {QStringLiteral("off"), {QStringLiteral("AO F")}},
        {QStringLiteral("play"), {QStringLiteral("P L EY")}},
        {QStringLiteral("plate"), {QStringLiteral("P L EY T")}},
        {QStringLiteral("pause"), {QStringLiteral("P AO Z")}},
        {QStringLiteral("base"), {QStringLiteral("B EY S")}},
        {QStringLiteral("bass"), {QStringLiteral("B EY S"), QStringLiteral("B AE S")}},
    };
    /// Each phrase with what it may be taken for.
    [[nodiscard]] QStringList found() const {
        QStringList lines;
        const SoundAlikes soundAlikes = finder_.find();
        for (auto it = soundAlikes.begin(); it != soundAlikes.end(); ++it) {
            for (const QStringList& other : *it) {
                lines << it.key() + QStringLiteral(" / ") + other.join(u' ');
            }
        }
        return lines;
    }

    SoundAlikeFinder finder_{pronunciations_};
};

TEST_F(SoundAlikesTest, WordsThatOnePhoneParts_AreFoundBothWays) {
    add(QStringLiteral("click on"));
    add(QStringLiteral("click off"));
    EXPECT_THAT(found(), UnorderedElementsAre(QStringLiteral("click on / click off"),
                                              QStringLiteral("click off / click on")));
}

TEST_F(SoundAlikesTest, OnePhoneMore_IsFound) {
    add(QStringLiteral("plate"));
    add(QStringLiteral("play"));
    EXPECT_THAT(found(),
                UnorderedElementsAre(QStringLiteral("play / plate"), QStringLiteral("plate / play")));
}

TEST_F(SoundAlikesTest, OtherWords_AreNotFound) {
    add(QStringLiteral("play"));
    add(QStringLiteral("pause"));
    add(QStringLiteral("play on"));
    add(QStringLiteral("click off"));
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(SoundAlikesTest, WordsThatSoundTheSame_AreNotFoundSinceNothingCouldTellThem) {
    add(QStringLiteral("base"));
    add(QStringLiteral("bass"));
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(SoundAlikesTest, TwoWaysOfSayingOnePhrase_AreNotFound) {
    finder_.add(QStringLiteral("play"), {QStringLiteral("play")});
    finder_.add(QStringLiteral("play"), {QStringLiteral("plate")});
    EXPECT_THAT(found(), IsEmpty());
}

} // namespace
} // namespace brivandel
