#include "engine/SoundLikeness.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

double distance(const QString& one, const QString& other) {
    return soundDistance(phoneSequence(one), phoneSequence(other));
}

const QString play = QStringLiteral("P L EY");

TEST(SoundLikeness, TheSame_IsNoDistance) {
    EXPECT_EQ(distance(play, play), 0);
    EXPECT_EQ(distance(QString(), QString()), 0);
}

TEST(SoundLikeness, NothingInCommon_IsOne) {
    EXPECT_EQ(distance(play, QStringLiteral("S AA K S")), 1);
    EXPECT_EQ(distance(play, QString()), 1);
}

TEST(SoundLikeness, RelatedPhones_CountHalf) {
    EXPECT_DOUBLE_EQ(distance(play, QStringLiteral("P R EY")), 0.5 / 3); // pray
    EXPECT_DOUBLE_EQ(distance(play, QStringLiteral("P T EY")), 1.0 / 3);
}

TEST(SoundLikeness, AMissingPhone_CountsOne) {
    EXPECT_DOUBLE_EQ(distance(QStringLiteral("S T AA P"), QStringLiteral("S T AA M P")), 1.0 / 5);
}

TEST(SoundLikeness, EitherWayRound_IsTheSame) {
    const QString stop = QStringLiteral("S T AA P");
    const QString track = QStringLiteral("T R AE K");
    EXPECT_EQ(distance(stop, track), distance(track, stop));
}

TEST(SoundLikeness, BeyondTheLimit_IsSomethingAboveIt) {
    EXPECT_GT(soundDistance(phoneSequence(play), phoneSequence(QStringLiteral("P L EY B AE K")), 0.2), 0.2);
}

TEST(SoundLikeness, StressAndFillers_AreNoPhones) {
    EXPECT_EQ(phoneSequence(QStringLiteral("SIL P L EY +NSN+")), phoneSequence(play));
}

} // namespace
} // namespace brivandel
