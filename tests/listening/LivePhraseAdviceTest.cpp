#include "listening/LivePhraseAdvice.h"

#include "support/ScriptedListening.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

// A guide that counts how often it was asked, and for what.
class CountingGuide final : public PronunciationGuide {
public:
    [[nodiscard]] ExpectedPhrases expect(const QSet<QString>& phrases) const override {
        asked.push_back(phrases);
        ExpectedPhrases expected;
        for (const QString& phrase : phrases) {
            if (phrase == QStringLiteral("play")) {
                expected.insert(phrase, {{phrase, QStringLiteral("P L EY"), true}});
            } else if (phrase == QStringLiteral("pray")) {
                expected.insert(phrase, {{phrase, QStringLiteral("P R EY"), true}});
            }
        }
        return expected;
    }
    mutable std::vector<QSet<QString>> asked;
};

class LivePhraseAdviceTest : public testing::Test {
protected:
    QStringList texts(const QString& phrase) {
        QStringList texts;
        for (const PhraseAdvice& found : advice.advice(phrase, QUuid())) {
            texts += adviceText(found);
        }
        return texts;
    }
    void runDue() { listening.scripted.mainQueue.runDue(); }

    ScriptedListening listening;
    std::shared_ptr<CountingGuide> guide = std::make_shared<CountingGuide>();
    LivePhraseAdvice advice{
        listening.controller,
        {*listening.scripted.platform->mainQueue, *listening.scripted.platform->workQueue, guide}};
};

const QString pray = QStringLiteral("pray");
const QString soundsLikePlay =
    QStringLiteral("Sounds very much like “play” of “play”: one may be taken for the other.");

TEST_F(LivePhraseAdviceTest, UntilAsked_LooksNothingUp) {
    runDue();
    EXPECT_TRUE(guide->asked.empty());
}

TEST_F(LivePhraseAdviceTest, Sound_IsKnownAfterALookUpThatIsAnnounced) {
    const QSignalSpy changes(&advice, &LivePhraseAdvice::changed);
    EXPECT_EQ(texts(pray), QStringList());
    EXPECT_EQ(changes.count(), 0);
    runDue();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(texts(pray), QStringList(soundsLikePlay));
}

TEST_F(LivePhraseAdviceTest, APhraseAlreadyLookedUp_IsNotLookedUpAgain) {
    texts(pray);
    runDue();
    texts(pray);
    texts(QStringLiteral("play"));
    runDue();
    EXPECT_EQ(guide->asked.size(), 1U);
}

TEST_F(LivePhraseAdviceTest, WhileOneLookUpIsUnderWay_TheNextWaits) {
    texts(QStringLiteral("pra"));
    texts(pray);
    EXPECT_EQ(guide->asked.size(), 1U);
    runDue();
    texts(pray);
    EXPECT_EQ(guide->asked.size(), 2U);
    EXPECT_EQ(guide->asked.back(), QSet<QString>{pray});
}

TEST_F(LivePhraseAdviceTest, ChangedSettings_ChangeTheAdvice) {
    texts(pray);
    runDue();
    const QSignalSpy changes(&advice, &LivePhraseAdvice::changed);
    listening.controller.setBuiltInTriggerOverrides({{QStringLiteral("play"), {QStringLiteral("roll")}}});
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(texts(pray), QStringList());
    EXPECT_EQ(texts(QStringLiteral("drum roll")),
              QStringList(QStringLiteral("Holds “roll”, and is always heard as “play”.")));
}

TEST_F(LivePhraseAdviceTest, AnAnswerAfterItsEnd_IsDropped) {
    auto shortLived = std::make_unique<LivePhraseAdvice>(
        listening.controller, LivePhraseAdvice::Services{*listening.scripted.platform->mainQueue,
                                                         *listening.scripted.platform->workQueue, guide});
    EXPECT_TRUE(shortLived->advice(pray, QUuid()).empty());
    shortLived.reset();
    runDue();
    EXPECT_EQ(guide->asked.size(), 1U);
}

TEST_F(LivePhraseAdviceTest, ManyTypedPhrases_AreForgottenInTheEnd) {
    for (int number = 0; number < 1200; ++number) {
        texts(QStringLiteral("phrase %1").arg(number));
        runDue();
    }
    const std::size_t before = guide->asked.size();
    texts(QStringLiteral("phrase 0"));
    runDue();
    EXPECT_EQ(guide->asked.size(), before + 1);
    EXPECT_EQ(texts(QStringLiteral("mute drums")), QStringList());
}

} // namespace
} // namespace brivandel
