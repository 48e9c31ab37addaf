#include "views/PhraseTrialView.h"

#include "listening/SpokenTrial.h"
#include "support/ScriptedListening.h"
#include "widgets/Button.h"
#include "widgets/Label.h"
#include "widgets/TextField.h"

#include <QTest>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class PhraseTrialViewTest : public testing::Test {
protected:
    void SetUp() override {
        view.resize(420, 200);
        view.show();
        turnOfTheLoop();
    }
    void turnOfTheLoop() {
        listening.scripted.mainQueue.runDue();
        QCoreApplication::processEvents();
    }
    template <typename Widget>
    Widget& find(const char* name) {
        auto* found = view.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    TextField& phrase() { return find<TextField>("trialPhrase"); }
    Button& speak() { return find<Button>("speak"); }
    void type(const QString& text) {
        phrase().clear();
        QTest::keyClicks(&phrase(), text);
        turnOfTheLoop();
    }
    QString headline() {
        return find<Label>("trialHeadline").isVisible() ? find<Label>("trialHeadline").text() : QString();
    }
    QStringList details() {
        return find<Label>("trialDetails").isVisible() ? find<Label>("trialDetails").text().split(u'\n')
                                                       : QStringList();
    }
    void hear(const QString& text) {
        listening.scripted.speechRecognition.deliver(RecognitionResult{text, false}, {}, {});
        turnOfTheLoop();
    }
    CustomCommand mixer() {
        return {.id = QUuid::createUuid(),
                .name = QStringLiteral("Mixer"),
                .triggers = {QStringLiteral("mixer")},
                .capturedKey = {.keyCode = 7,
                                .modifierFlags = 0,
                                .displayString = QStringLiteral("X"),
                                .appleScript = QStringLiteral("key code 7")}};
    }

    ScriptedListening listening;
    SpokenTrial spokenTrial{listening.controller, *listening.scripted.platform};
    PhraseTrialView view{listening.controller, *listening.scripted.platform->mainQueue, spokenTrial};
};

TEST_F(PhraseTrialViewTest, NothingTyped_ShowsNothing) {
    EXPECT_EQ(headline(), QString());
    type(QStringLiteral("hey"));
    EXPECT_NE(headline(), QString());
    type(QStringLiteral("  "));
    EXPECT_EQ(headline(), QString());
}

TEST_F(PhraseTrialViewTest, ACommand_ShowsItsTriggerAndItsKeys) {
    type(QStringLiteral("Hey Logic play"));
    EXPECT_EQ(headline(), QStringLiteral("play (Start playback from current position), by \"play\""));
    EXPECT_EQ(details(), QStringList(QStringLiteral("Sends key code 49")));
    EXPECT_TRUE(listening.events.empty()) << "nothing is sent";
}

TEST_F(PhraseTrialViewTest, WithoutTheWakePhrase_SaysWhatWouldFollowIt) {
    type(QStringLiteral("play"));
    EXPECT_EQ(headline(), QStringLiteral("Not woken: say “hey logic” first"));
    EXPECT_EQ(details(), QStringList(QStringLiteral(
                             "After it: play (Start playback from current position), by \"play\"")));
    type(QStringLiteral("good morning"));
    EXPECT_EQ(headline(), QStringLiteral("Not woken: say “hey logic” first"));
    EXPECT_EQ(details(), QStringList());
}

TEST_F(PhraseTrialViewTest, TheWakePhraseAlone_Wakes) {
    type(QStringLiteral("hey logic"));
    EXPECT_EQ(headline(), QStringLiteral("Woken: a command may follow"));
}

TEST_F(PhraseTrialViewTest, NoCommand_SaysSo) {
    type(QStringLiteral("hey logic good morning"));
    EXPECT_EQ(headline(), QStringLiteral("No command"));
    EXPECT_EQ(details(), QStringList());
}

TEST_F(PhraseTrialViewTest, WhatIsHidden_IsNamed) {
    listening.controller.setCustomCommands({mixer()});
    type(QStringLiteral("hey logic play mixer"));
    EXPECT_EQ(details(), (QStringList{QStringLiteral("Sends key code 49"),
                                      QStringLiteral("Hides Mixer (X, your own command), by \"mixer\"")}));
}

TEST_F(PhraseTrialViewTest, ABar_ShowsAllItsKeys) {
    type(QStringLiteral("hey logic go to bar twenty five"));
    EXPECT_EQ(headline(), QStringLiteral("Go to bar 25"));
    EXPECT_THAT(details().value(0).toStdString(),
                testing::StartsWith("Sends key code 44, then keystroke \"25\""));
}

TEST_F(PhraseTrialViewTest, ChangedSettings_AreFollowed) {
    type(QStringLiteral("mixer"));
    listening.controller.setCustomCommands({mixer()});
    listening.controller.setUseWakeWord(false);
    turnOfTheLoop();
    EXPECT_EQ(headline(), QStringLiteral("Mixer (X, your own command), by \"mixer\""));
    listening.controller.setCustomCommands({});
    turnOfTheLoop();
    EXPECT_EQ(headline(), QStringLiteral("No command"));
}

TEST_F(PhraseTrialViewTest, HeldButton_ListensAndShowsWhatWasSaid) {
    type(QStringLiteral("something else"));
    QTest::mousePress(&speak(), Qt::LeftButton);
    turnOfTheLoop();
    EXPECT_TRUE(spokenTrial.isListening());
    EXPECT_EQ(headline(), QStringLiteral("Listening..."));
    hear(QStringLiteral("hey logic stop"));
    EXPECT_EQ(phrase().text(), QStringLiteral("hey logic stop"));
    EXPECT_EQ(headline(), QStringLiteral("stop (Stop playback/recording), by \"stop\""));
    QTest::mouseRelease(&speak(), Qt::LeftButton);
    listening.scripted.mainQueue.advance(99ms);
    EXPECT_TRUE(spokenTrial.isListening());
    listening.scripted.mainQueue.advance(1ms);
    turnOfTheLoop();
    EXPECT_FALSE(spokenTrial.isListening());
    EXPECT_EQ(headline(), QStringLiteral("stop (Stop playback/recording), by \"stop\""));
    EXPECT_TRUE(listening.controller.lastCommand().isEmpty());
}

TEST_F(PhraseTrialViewTest, HeldSpaceBar_IsAHeldButton) {
    speak().setFocus();
    QTest::keyPress(&speak(), Qt::Key_Space);
    EXPECT_TRUE(spokenTrial.isListening());
    QTest::keyRelease(&speak(), Qt::Key_Space);
    listening.scripted.mainQueue.advance(100ms);
    EXPECT_FALSE(spokenTrial.isListening());
}

TEST_F(PhraseTrialViewTest, AKeyThatRepeatsAsShortPresses_IsHeld) {
    speak().setFocus();
    QTest::keyPress(&speak(), Qt::Key_Space);
    turnOfTheLoop();
    hear(QStringLiteral("hey logic"));
    for (int repeat = 0; repeat < 5; ++repeat) {
        listening.scripted.mainQueue.advance(30ms);
        QTest::keyRelease(&speak(), Qt::Key_Space);
        QTest::keyPress(&speak(), Qt::Key_Space);
    }
    listening.scripted.mainQueue.advance(1s);
    EXPECT_TRUE(spokenTrial.isListening());
    EXPECT_EQ(phrase().text(), QStringLiteral("hey logic"));
    hear(QStringLiteral("hey logic play"));
    EXPECT_EQ(phrase().text(), QStringLiteral("hey logic play"));
}

TEST_F(PhraseTrialViewTest, WhileListening_TheButtonSaysWhyItIsOff) {
    listening.controller.setIsListening(true);
    turnOfTheLoop();
    EXPECT_FALSE(speak().isEnabled());
    EXPECT_EQ(speak().toolTip(), QStringLiteral("Switch voice control off to try a spoken phrase"));
    listening.controller.setIsListening(false);
    turnOfTheLoop();
    EXPECT_TRUE(speak().isEnabled());
    EXPECT_EQ(speak().toolTip(), QStringLiteral("Hold to speak"));
}

TEST_F(PhraseTrialViewTest, AFailure_IsShownUntilSomethingIsTyped) {
    listening.scripted.audioEngine.failStarts(2, QStringLiteral("no microphone"));
    QTest::mousePress(&speak(), Qt::LeftButton);
    listening.scripted.mainQueue.advance(std::chrono::seconds(1));
    QTest::mouseRelease(&speak(), Qt::LeftButton);
    listening.scripted.mainQueue.advance(100ms);
    turnOfTheLoop();
    EXPECT_EQ(headline(), QStringLiteral("Audio engine error: no microphone"));
    type(QStringLiteral("hey logic stop"));
    EXPECT_EQ(headline(), QStringLiteral("stop (Stop playback/recording), by \"stop\""));
}

TEST_F(PhraseTrialViewTest, Hidden_StopsListening) {
    QTest::mousePress(&speak(), Qt::LeftButton);
    EXPECT_TRUE(spokenTrial.isListening());
    view.hide();
    EXPECT_FALSE(spokenTrial.isListening());
}

} // namespace
} // namespace brivandel
