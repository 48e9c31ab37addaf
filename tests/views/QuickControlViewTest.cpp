#include "views/QuickControlView.h"

#include "support/ScriptedListening.h"
#include "widgets/Button.h"
#include "widgets/Divider.h"
#include "widgets/Label.h"
#include "widgets/StatusDisc.h"
#include "widgets/Switch.h"
#include "widgets/SymbolView.h"
#include "widgets/Theme.h"

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class QuickControlViewTest : public testing::Test {
protected:
    void SetUp() override {
        view.show();
        turnOfTheLoop();
    }
    static void turnOfTheLoop() { QCoreApplication::processEvents(); }

    template <typename Widget>
    Widget& find(const char* name) {
        auto* found = view.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    StatusDisc& disc() { return find<StatusDisc>("disc"); }
    Button& button() { return find<Button>("listeningButton"); }
    Switch& wakeWordSwitch() { return find<Switch>("useWakeWord"); }
    QString text(const char* name) { return find<Label>(name).text(); }

    ScriptedListening listening;
    VoiceController& controller = listening.controller;
    QuickControlView view{controller};
};

TEST_F(QuickControlViewTest, NotListening_ShowsADiscAtRest) {
    EXPECT_EQ(find<SymbolView>("headerSymbol").symbol(), QStringLiteral("mic.fill"));
    EXPECT_EQ(find<SymbolView>("headerSymbol").symbolColor(), NamedColor::Gray);
    EXPECT_EQ(text("activity"), QStringLiteral("Inactive"));
    EXPECT_EQ(disc().discColor(), NamedColor::Gray);
    EXPECT_EQ(disc().symbol(), QStringLiteral("mic.slash.fill"));
    EXPECT_EQ(disc().scale(), 1);
    EXPECT_EQ(disc().firstShadow().opacity, 0.2);
    EXPECT_EQ(disc().secondShadow().radius, 5);
    EXPECT_EQ(button().text(), QStringLiteral("Start Listening"));
    EXPECT_EQ(button().symbol(), QStringLiteral("play.circle.fill"));
    EXPECT_EQ(button().tint(), NamedColor::Blue);
}

TEST_F(QuickControlViewTest, WaitingForTheWakePhrase_IsGreen) {
    controller.setIsListening(true);
    turnOfTheLoop();
    EXPECT_EQ(find<SymbolView>("headerSymbol").symbolColor(), NamedColor::Red);
    EXPECT_EQ(text("activity"), QStringLiteral("Active"));
    EXPECT_EQ(disc().discColor(), NamedColor::Green);
    EXPECT_EQ(disc().symbol(), QStringLiteral("mic.fill"));
    EXPECT_EQ(button().text(), QStringLiteral("Stop Listening"));
    EXPECT_EQ(button().symbol(), QStringLiteral("stop.circle.fill"));
    EXPECT_EQ(button().tint(), NamedColor::Red);
}

TEST_F(QuickControlViewTest, Awake_IsOrangeWithAWaveform) {
    controller.setIsListening(true);
    controller.handleRecognitionText(QStringLiteral("hey logic"));
    ASSERT_TRUE(controller.isAwake());
    turnOfTheLoop();
    EXPECT_EQ(disc().discColor(), NamedColor::Orange);
    EXPECT_EQ(disc().symbol(), QStringLiteral("waveform"));
}

TEST_F(QuickControlViewTest, AwakeButNotListening_IsGray) {
    controller.setIsAwake(true);
    turnOfTheLoop();
    EXPECT_EQ(disc().discColor(), NamedColor::Gray);
    EXPECT_EQ(disc().symbol(), QStringLiteral("mic.slash.fill"));
}

TEST_F(QuickControlViewTest, Level_MovesTheDiscOnlyWhileListening) {
    controller.setAudioLevel(1);
    turnOfTheLoop();
    EXPECT_EQ(disc().scale(), 1);
    controller.setIsListening(true);
    controller.setAudioLevel(1);
    turnOfTheLoop();
    EXPECT_DOUBLE_EQ(disc().scale(), 1.18);
    EXPECT_DOUBLE_EQ(disc().firstShadow().opacity, 1.0);
    EXPECT_DOUBLE_EQ(disc().firstShadow().radius, 14);
    EXPECT_DOUBLE_EQ(disc().secondShadow().opacity, 0.5);
    EXPECT_DOUBLE_EQ(disc().secondShadow().radius, 22);
}

TEST_F(QuickControlViewTest, LevelOf32Bits_IsWidenedBeforeTheProducts) {
    controller.setIsListening(true);
    controller.setAudioLevel(0.3F);
    turnOfTheLoop();
    EXPECT_EQ(disc().scale(), 1 + static_cast<double>(0.3F) * 0.18);
}

TEST_F(QuickControlViewTest, AfterLaunch_HasNeitherBox) {
    EXPECT_FALSE(find<QWidget>("commandBox").isVisible());
    EXPECT_FALSE(find<QWidget>("heardBox").isVisible());
}

TEST_F(QuickControlViewTest, WhatWasHeardAndDone_StandsInItsBox) {
    controller.setLastCommand(QStringLiteral("Play"));
    controller.setLastTranscript(QStringLiteral("hey logic play"));
    turnOfTheLoop();
    EXPECT_TRUE(find<QWidget>("commandBox").isVisible());
    EXPECT_EQ(text("lastCommand"), QStringLiteral("Play"));
    EXPECT_TRUE(find<QWidget>("heardBox").isVisible());
    EXPECT_EQ(text("lastTranscript"), QStringLiteral("hey logic play"));
    controller.setLastTranscript(QString());
    turnOfTheLoop();
    EXPECT_FALSE(find<QWidget>("heardBox").isVisible());
}

TEST_F(QuickControlViewTest, StatusMessage_StandsInItsFixedHeight) {
    controller.setStatusMessage(QStringLiteral("Error: ") + QStringLiteral("a long story ").repeated(50));
    turnOfTheLoop();
    EXPECT_EQ(text("statusMessage"), controller.statusMessage());
    EXPECT_EQ(find<Label>("statusMessage").height(), 30);
}

TEST_F(QuickControlViewTest, CustomWakePhrase_StillNamesTheDefaultOne) {
    controller.setWakeWord(QStringLiteral("computer"));
    turnOfTheLoop();
    EXPECT_EQ(text("wakePhraseHint"), QStringLiteral("Say \"Hey Logic\" before each command"));
    EXPECT_EQ(text("wakePhraseHint").size(), 35);
}

TEST_F(QuickControlViewTest, WakeWordSwitchedOff_IsStoredAndSaysSoAtOnce) {
    ASSERT_TRUE(wakeWordSwitch().isChecked());
    QTest::mouseClick(&wakeWordSwitch(), Qt::LeftButton);
    turnOfTheLoop();
    EXPECT_FALSE(controller.useWakeWord());
    EXPECT_EQ(listening.scripted.defaults.object(QStringLiteral("useWakeWord")), QVariant(false));
    EXPECT_EQ(text("wakePhraseHint"), QStringLiteral("Speak commands directly"));
}

TEST_F(QuickControlViewTest, WakeWordSwitchedByVoice_MovesTheSwitchAndStoresNothingTwice) {
    controller.setUseWakeWord(false);
    listening.events.clear();
    turnOfTheLoop();
    EXPECT_FALSE(wakeWordSwitch().isChecked());
    EXPECT_TRUE(listening.events.empty());
}

TEST_F(QuickControlViewTest, Button_StartsAndStopsListening) {
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_TRUE(controller.isListening());
    QTest::keyClick(&button(), Qt::Key_Space);
    EXPECT_FALSE(controller.isListening());
}

TEST_F(QuickControlViewTest, Hidden_IsNotRedrawnUntilItIsShown) {
    view.hide();
    controller.setIsListening(true);
    turnOfTheLoop();
    EXPECT_EQ(text("activity"), QStringLiteral("Inactive"));
    view.show();
    EXPECT_EQ(text("activity"), QStringLiteral("Active"));
}

TEST_F(QuickControlViewTest, Layout_FollowsItsMeasures) {
    EXPECT_EQ(view.width(), 300);
    const auto dividers = view.findChildren<Divider*>();
    ASSERT_EQ(dividers.size(), 2);
    const QRect discRect = disc().geometry();
    EXPECT_EQ(discRect.center().x(), view.rect().center().x());
    // The disc stands 16 below the first divider; the widget reaches beyond it by its shadows.
    EXPECT_EQ(discRect.center().y() - StatusDisc::restingDiameter / 2 + 1,
              dividers[0]->geometry().bottom() + 1 + 16);
    // Without the boxes the second divider follows the status block directly.
    auto& message = find<Label>("statusMessage");
    EXPECT_EQ(dividers[1]->geometry().top(), message.mapTo(&view, QPoint(0, message.height())).y() + 16);
    EXPECT_EQ(button().width(), 300 - 2 * defaultPadding);
}

TEST_F(QuickControlViewTest, Disc_SaysTheStatus) {
    EXPECT_EQ(disc().accessibleName(), QStringLiteral("Not listening"));
    controller.setIsListening(true);
    turnOfTheLoop();
    EXPECT_EQ(disc().accessibleName(), QStringLiteral("Listening"));
}

} // namespace
} // namespace brivandel
