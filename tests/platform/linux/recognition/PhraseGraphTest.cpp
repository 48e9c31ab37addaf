#include "platform/linux/recognition/PhraseGraph.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

QStringList words(const QString& text) {
    return text.split(u' ', Qt::SkipEmptyParts);
}

class PhraseGraphTest : public testing::Test {
protected:
    PhraseGraphTest() {
        graph_.setWakePhrase(QStringLiteral("hey logic"), words(QStringLiteral("hey logic")));
        for (const QStringView phrase : std::initializer_list<QStringView>{
                 u"play", u"play that back", u"save", u"save as", u"stop", u"pause"}) {
            addPhrase(phrase.toString());
        }
        graph_.addBarPhrase(QStringLiteral("go to bar"), words(QStringLiteral("go to bar")));
    }

    void addPhrase(const QString& phrase) { graph_.addPhrase(phrase, words(phrase)); }
    [[nodiscard]] std::optional<Reading> read(const QString& text) const { return graph_.read(words(text)); }

    PhraseGraph graph_;
};

TEST_F(PhraseGraphTest, WakePhraseAndCommand_IsWhole) {
    EXPECT_EQ(read(QStringLiteral("hey logic pause")), (Reading{.text = QStringLiteral("hey logic pause"),
                                                                .hasWakePhrase = true,
                                                                .hasCommand = true,
                                                                .isWhole = true,
                                                                .mayGoOn = false}));
}

TEST_F(PhraseGraphTest, WakePhraseAlone_IsWholeAndMayGoOn) {
    EXPECT_EQ(read(QStringLiteral("hey logic")), (Reading{.text = QStringLiteral("hey logic"),
                                                          .hasWakePhrase = true,
                                                          .hasCommand = false,
                                                          .isWhole = true,
                                                          .mayGoOn = true}));
}

TEST_F(PhraseGraphTest, BeginningOfALongerPhrase_MayGoOn) {
    EXPECT_TRUE(read(QStringLiteral("play"))->mayGoOn);
    EXPECT_TRUE(read(QStringLiteral("save"))->mayGoOn);
    EXPECT_FALSE(read(QStringLiteral("play that back"))->mayGoOn);
}

TEST_F(PhraseGraphTest, HalfAPhrase_IsNotWhole) {
    EXPECT_FALSE(read(QStringLiteral("hey"))) << "not even the beginning of a command";
    EXPECT_FALSE(read(QStringLiteral("play that"))->isWhole);
    EXPECT_FALSE(read(QStringLiteral("go to bar"))->isWhole);
}

TEST_F(PhraseGraphTest, BeginningOfALongerWord_MayGoOn) {
    EXPECT_FALSE(read(QStringLiteral("stop"))->mayGoOn);
    addPhrase(QStringLiteral("stopwatch"));
    EXPECT_TRUE(read(QStringLiteral("stop"))->mayGoOn);
}

TEST_F(PhraseGraphTest, BarNumber_IsWrittenInDigits) {
    EXPECT_EQ(read(QStringLiteral("hey logic go to bar one hundred and twelve"))->text,
              QStringLiteral("hey logic go to bar 112"));
}

TEST_F(PhraseGraphTest, NumberThatCanGoOn_MayGoOn) {
    EXPECT_TRUE(read(QStringLiteral("go to bar twenty"))->mayGoOn);
    EXPECT_FALSE(read(QStringLiteral("go to bar twenty five"))->mayGoOn);
    EXPECT_FALSE(read(QStringLiteral("go to bar zero"))->mayGoOn);
}

TEST_F(PhraseGraphTest, NumberBrokenOff_IsNotWhole) {
    EXPECT_FALSE(read(QStringLiteral("go to bar one hundred and"))->isWhole);
}

TEST_F(PhraseGraphTest, OtherWords_AreNoReading) {
    EXPECT_FALSE(read(QStringLiteral("play football")));
    EXPECT_FALSE(read(QStringLiteral("hey logic football")));
    EXPECT_FALSE(read(QStringLiteral("go to bar football")));
}

TEST_F(PhraseGraphTest, PhrasesThatSoundAlike_AreWrittenAsTheLonger) {
    graph_.addPhrase(QStringLiteral("stop!"), words(QStringLiteral("stop")));
    EXPECT_EQ(read(QStringLiteral("stop"))->text, QStringLiteral("stop!"));
}

TEST_F(PhraseGraphTest, WordsSinceTheLastWakePhrase_AreForUs) {
    const auto forUs = [this](const QString& text, Expecting expecting) {
        return graph_.addressed(words(text), expecting).join(u' ');
    };
    EXPECT_EQ(forUs(QStringLiteral("hey logic stop hey logic play"), Expecting::WakePhrase),
              QStringLiteral("hey logic play"));
    EXPECT_EQ(forUs(QStringLiteral("say hey logic play"), Expecting::Command),
              QStringLiteral("hey logic play"));
    EXPECT_EQ(forUs(QStringLiteral("the logic of it"), Expecting::WakePhrase), QString());
    EXPECT_EQ(forUs(QStringLiteral("the logic of it"), Expecting::Command),
              QStringLiteral("the logic of it"));
    EXPECT_TRUE(graph_.addressed({}, Expecting::Command).isEmpty());
}

TEST_F(PhraseGraphTest, CustomPhraseOverABarPhrase_IsReadBesideNumbers) {
    addPhrase(QStringLiteral("go to bar mode"));
    EXPECT_EQ(read(QStringLiteral("go to bar mode"))->text, QStringLiteral("go to bar mode"));
    EXPECT_EQ(read(QStringLiteral("go to bar nine"))->text, QStringLiteral("go to bar 9"));
}

} // namespace
} // namespace brivandel
