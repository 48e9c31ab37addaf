#include "settings/SettingsView.h"

#include "settings/SettingsTest.h"
#include "widgets/Label.h"
#include "widgets/MenuPicker.h"
#include "widgets/ResourceImage.h"
#include "widgets/Switch.h"
#include "widgets/SymbolTabBar.h"
#include "widgets/TextField.h"

#include <QAccessible>
#include <QStackedWidget>
#include <QWheelEvent>

namespace brivandel::testing {

namespace {

class SettingsViewTest : public SettingsTest {
protected:
    void SetUp() override {
        scripted().audioDevices.setDevices({{{QStringLiteral("uid-a"), QStringLiteral("Built-in")}, 1},
                                            {{QStringLiteral("uid-b"), QStringLiteral("<b>USB</b>")}, 2}});
        view.emplace(controller(), layout(), advice());
        open(*view);
    }
    [[nodiscard]] SymbolTabBar& tabs() { return find<SymbolTabBar>(*view, "tabs"); }
    [[nodiscard]] Switch& toggle(const char* name) { return find<Switch>(*view, name); }
    [[nodiscard]] TextField& wakeWord() { return find<TextField>(*view, "wakeWord"); }
    [[nodiscard]] Label& hint() { return find<Label>(*view, "wakeWordHint"); }
    [[nodiscard]] MenuPicker& timeout() { return find<MenuPicker>(*view, "timeout"); }
    [[nodiscard]] MenuPicker& device() { return find<MenuPicker>(*view, "inputDevice"); }
    static QStringList choices(const MenuPicker& picker) {
        QStringList texts;
        for (int index = 0; index < picker.count(); ++index) {
            texts += picker.itemText(index);
        }
        return texts;
    }
    /// By keyboard, from the first choice on.
    static void pick(MenuPicker& picker, int index) {
        picker.setFocus();
        QTest::keyClick(&picker, Qt::Key_Home);
        for (int step = 0; step < index; ++step) {
            QTest::keyClick(&picker, Qt::Key_Down);
        }
        turnOfTheLoop();
    }
    [[nodiscard]] QStringList labelTexts() const {
        QStringList texts;
        for (const auto* label : view->findChildren<Label*>()) {
            texts += label->text();
        }
        return texts;
    }

    std::optional<SettingsView> view;
};

TEST_F(SettingsViewTest, Tabs_StandInTheirOrder) {
    ASSERT_EQ(tabs().count(), 4);
    EXPECT_EQ(tabs().tabText(0), QStringLiteral("General"));
    EXPECT_EQ(tabs().tabText(1), QStringLiteral("Commands"));
    EXPECT_EQ(tabs().tabText(2), QStringLiteral("Audio"));
    EXPECT_EQ(tabs().tabText(3), QStringLiteral("About"));
    EXPECT_EQ(tabs().tabData(0), QStringLiteral("gear"));
    EXPECT_EQ(tabs().tabData(1), QStringLiteral("list.bullet"));
    EXPECT_EQ(tabs().tabData(2), QStringLiteral("waveform"));
    EXPECT_EQ(tabs().tabData(3), QStringLiteral("info.circle"));
    EXPECT_EQ(view->selectedTab(), 0);
    EXPECT_EQ(view->size(), QSize(500, 500));
}

TEST_F(SettingsViewTest, Tab_ShowsItsPage) {
    auto& pages = *view->findChild<QStackedWidget*>();
    for (int tab = 0; tab < 4; ++tab) {
        QTest::mouseClick(&tabs(), Qt::LeftButton, {}, tabs().tabRect(tab).center());
        EXPECT_EQ(view->selectedTab(), tab);
        EXPECT_EQ(pages.currentIndex(), tab);
        EXPECT_EQ(view->size(), QSize(500, 500));
    }
}

TEST_F(SettingsViewTest, Keyboard_ChangesTabs) {
    tabs().setFocus();
    QTest::keyClick(&tabs(), Qt::Key_Right);
    EXPECT_EQ(view->selectedTab(), 1);
    QTest::keyClick(&tabs(), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(&tabs(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(view->selectedTab(), 3);
    QTest::keyClick(&tabs(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(view->selectedTab(), 0);
}

TEST_F(SettingsViewTest, OpenSettingsCommandsTab_ShowsCommands) {
    view->openSettingsCommandsTab();
    EXPECT_EQ(view->selectedTab(), 1);
}

TEST_F(SettingsViewTest, FirstLaunch_ShowsTheDefaults) {
    EXPECT_TRUE(toggle("useWakeWord").isChecked());
    EXPECT_EQ(wakeWord().text(), QStringLiteral("hey logic"));
    EXPECT_EQ(hint().text(), QStringLiteral("Say 'hey logic' to activate voice commands"));
    EXPECT_TRUE(toggle("audioFeedback").isChecked());
    EXPECT_EQ(timeout().currentText(), QStringLiteral("30 minutes"));
    EXPECT_TRUE(toggle("idleReminder").isChecked());
    EXPECT_TRUE(toggle("autoDisable").isChecked());
    EXPECT_EQ(device().currentText(), QStringLiteral("System Default"));
}

TEST_F(SettingsViewTest, UseWakeWord_ShowsAndHidesTheWakeWord) {
    EXPECT_TRUE(wakeWord().isVisible());
    click(toggle("useWakeWord"));
    EXPECT_FALSE(controller().useWakeWord());
    EXPECT_EQ(stored("useWakeWord"), QVariant(false));
    EXPECT_FALSE(wakeWord().isVisible());
    EXPECT_FALSE(hint().isVisible());
    click(toggle("useWakeWord"));
    EXPECT_EQ(stored("useWakeWord"), QVariant(true));
    EXPECT_TRUE(wakeWord().isVisible());
    EXPECT_EQ(wakeWord().text(), QStringLiteral("hey logic"));
}

TEST_F(SettingsViewTest, WakeWord_IsStoredWithEachKey) {
    wakeWord().selectAll();
    QTest::keyClick(&wakeWord(), Qt::Key_Y);
    turnOfTheLoop();
    EXPECT_EQ(stored("wakeWord"), QStringLiteral("y"));
    EXPECT_EQ(hint().text(), QStringLiteral("Say 'y' to activate voice commands"));
    QTest::keyClicks(&wakeWord(), QStringLiteral("O "));
    turnOfTheLoop();
    EXPECT_EQ(stored("wakeWord"), QStringLiteral("yO "));
    EXPECT_EQ(hint().text(), QStringLiteral("Say 'yO ' to activate voice commands"));
}

TEST_F(SettingsViewTest, WakeWordSetByAssistiveTechnology_IsInForceAndStored) {
    QAccessible::queryAccessibleInterface(&wakeWord())->setText(QAccessible::Value, QStringLiteral("yo"));
    EXPECT_EQ(controller().wakeWord(), QStringLiteral("yo"));
    EXPECT_EQ(stored("wakeWord"), QStringLiteral("yo"));
}

TEST_F(SettingsViewTest, WakeWordChangedInTheMiddle_KeepsTheCursor) {
    wakeWord().setFocus();
    wakeWord().setCursorPosition(3);
    QTest::keyClicks(&wakeWord(), QStringLiteral("x"));
    turnOfTheLoop();
    EXPECT_EQ(wakeWord().cursorPosition(), 4);
    EXPECT_EQ(controller().wakeWord(), QStringLiteral("heyx logic"));
}

TEST_F(SettingsViewTest, WakeWordOfAnyKind_IsShownAsItIs) {
    for (const auto& word : {QStringLiteral("<b>hey</b>"), QStringLiteral("%1 %2"), QStringLiteral("שלום"),
                             QString(10000, u'x'), QStringLiteral("one\ntwo"), QString()}) {
        controller().setWakeWord(word);
        turnOfTheLoop();
        EXPECT_EQ(wakeWord().text(), word);
        EXPECT_EQ(hint().text(),
                  QStringLiteral("Say '") + word + QStringLiteral("' to activate voice commands"));
        EXPECT_EQ(hint().textFormat(), Qt::PlainText);
        EXPECT_LE(hint().mapTo(&*view, QPoint(hint().width(), 0)).x(), 500);
        EXPECT_LE(timeout().mapTo(&*view, QPoint(0, timeout().height())).y(), 500);
    }
}

TEST_F(SettingsViewTest, Switches_AreStored) {
    const std::initializer_list<std::pair<const char*, const char*>> keys = {
        {"audioFeedback", "audioFeedback"},
        {"idleReminder", "idleReminderEnabled"},
        {"autoDisable", "autoDisableOnIdle"}};
    for (const auto& [control, key] : keys) {
        click(toggle(control));
        EXPECT_EQ(stored(key), QVariant(false)) << key;
        click(toggle(control));
        EXPECT_EQ(stored(key), QVariant(true)) << key;
    }
}

TEST_F(SettingsViewTest, Switch_WorksByKeyboard) {
    toggle("audioFeedback").setFocus();
    QTest::keyClick(&toggle("audioFeedback"), Qt::Key_Space);
    EXPECT_FALSE(controller().audioFeedbackEnabled());
}

TEST_F(SettingsViewTest, Timeout_OffersSixTimes) {
    EXPECT_EQ(choices(timeout()), QStringList({QStringLiteral("1 minute"), QStringLiteral("5 minutes"),
                                               QStringLiteral("10 minutes"), QStringLiteral("15 minutes"),
                                               QStringLiteral("30 minutes"), QStringLiteral("60 minutes")}));
    const std::initializer_list<std::pair<int, qlonglong>> stored_ = {{0, 1},  {1, 5},  {2, 10},
                                                                      {3, 15}, {4, 30}, {5, 60}};
    for (const auto& [index, minutes] : stored_) {
        pick(timeout(), index);
        EXPECT_EQ(stored("idleTimeoutMinutes"), QVariant(minutes));
        EXPECT_EQ(timeout().currentIndex(), index);
    }
}

TEST_F(SettingsViewTest, TimeoutThatIsNoChoice_ShowsNone) {
    controller().setIdleTimeoutMinutes(7);
    turnOfTheLoop();
    EXPECT_EQ(timeout().currentIndex(), -1);
    EXPECT_EQ(controller().idleTimeoutMinutes(), 7);
}

TEST_F(SettingsViewTest, TurningWheel_ChangesNoChoice) {
    timeout().setFocus();
    QWheelEvent wheel(QPointF(5, 5), timeout().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&timeout(), &wheel);
    EXPECT_EQ(controller().idleTimeoutMinutes(), 30);
    EXPECT_EQ(timeout().currentText(), QStringLiteral("30 minutes"));
}

TEST_F(SettingsViewTest, ToolTipsAndTexts_StandToTheCharacter) {
    EXPECT_EQ(wakeWord().toolTip(),
              QStringLiteral("Say this phrase to activate listening (e.g., 'hey logic')"));
    EXPECT_EQ(wakeWord().placeholderText(), QStringLiteral("Wake word"));
    EXPECT_EQ(toggle("audioFeedback").toolTip(), QStringLiteral("Play a sound when commands are executed"));
    EXPECT_EQ(toggle("idleReminder").toolTip(),
              QStringLiteral("Show a notification when no commands have been received"));
    EXPECT_EQ(toggle("autoDisable").toolTip(),
              QStringLiteral("Automatically stop listening after the timeout period"));
    EXPECT_EQ(toggle("useWakeWord").text(), QStringLiteral("Use wake word"));
    EXPECT_EQ(toggle("audioFeedback").text(), QStringLiteral("Audio feedback"));
    EXPECT_EQ(toggle("idleReminder").text(), QStringLiteral("Remind me when idle"));
    EXPECT_EQ(toggle("autoDisable").text(), QStringLiteral("Auto-disable when idle"));
    const QStringList texts = labelTexts();
    for (const auto& text :
         {QStringLiteral("Wake Word"), QStringLiteral("Feedback"), QStringLiteral("Idle Timeout"),
          QStringLiteral("Timeout after"),
          QStringLiteral("Get a reminder or auto-stop after a period of inactivity"),
          QStringLiteral("Microphone Input"), QStringLiteral("Select audio input device for voice commands"),
          QStringLiteral("Input Device"), QStringLiteral("Audio Interface Setup"),
          QStringLiteral("If using an audio interface:"),
          QStringLiteral("• Connect your microphone to the interface"),
          QStringLiteral("• Select your interface from the list above"),
          QStringLiteral("• Both Logic and this app can listen to the same input"),
          QStringLiteral("Version 1.4"), QStringLiteral("Hands-free recording for solo musicians"),
          QStringLiteral("Control Logic Pro with voice commands while you play"),
          QStringLiteral("Your Privacy is Protected"),
          QStringLiteral(
              "All speech recognition is performed on-device by Apple's Speech framework. No audio is "
              "ever recorded, stored, or transmitted off your computer. This app collects zero user "
              "data.")}) {
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
    }
}

TEST_F(SettingsViewTest, About_ShowsTheLogoAndWholeTexts) {
    view->setSelectedTab(SettingsView::About);
    turnOfTheLoop();
    EXPECT_EQ(find<ResourceImage>(*view, "logo").height(), 120);
    for (const auto* label : view->findChildren<Label*>()) {
        if (label->isVisible()) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
        }
    }
}

TEST_F(SettingsViewTest, Devices_AreChosenByTheirIdentity) {
    EXPECT_EQ(choices(device()), QStringList({QStringLiteral("System Default"), QStringLiteral("Built-in"),
                                              QStringLiteral("<b>USB</b>")}));
    pick(device(), 2);
    EXPECT_EQ(stored("audioDevice"), QStringLiteral("uid-b"));
    EXPECT_EQ(controller().selectedAudioDevice(), QStringLiteral("uid-b"));
    EXPECT_EQ(device().currentIndex(), 2);
    pick(device(), 0);
    EXPECT_FALSE(stored("audioDevice").isValid());
    EXPECT_FALSE(controller().selectedAudioDevice());
}

TEST_F(SettingsViewTest, SameChoiceAgain_ChangesNothing) {
    // The settings file is written with each change, and would say so.
    pick(device(), 1);
    pick(timeout(), 1);
    ASSERT_TRUE(QFile::remove(path()));
    Q_EMIT device().activated(1);
    Q_EMIT timeout().activated(1);
    EXPECT_FALSE(QFile::exists(path()));
    Q_EMIT device().activated(2);
    EXPECT_TRUE(QFile::exists(path()));
}

TEST_F(SettingsViewTest, StoredDeviceThatIsNotThere_MatchesNoChoice) {
    controller().setSelectedAudioDevice(QStringLiteral("unplugged"));
    view->setSelectedTab(SettingsView::Audio);
    turnOfTheLoop();
    EXPECT_EQ(device().currentIndex(), -1);
    EXPECT_EQ(controller().selectedAudioDevice(), QStringLiteral("unplugged"));
}

TEST_F(SettingsViewTest, DevicePluggedIn_AppearsWhenShownAgain) {
    scripted().audioDevices.setDevices({});
    turnOfTheLoop();
    EXPECT_EQ(device().count(), 3);
    view->hide();
    EXPECT_EQ(device().count(), 3);
    view->show();
    EXPECT_EQ(choices(device()), QStringList(QStringLiteral("System Default")));
}

TEST_F(SettingsViewTest, ChangesWhileHidden_ShowWhenItIsShown) {
    view->hide();
    controller().setUseWakeWord(false);
    controller().setIdleTimeoutMinutes(5);
    turnOfTheLoop();
    view->show();
    EXPECT_FALSE(toggle("useWakeWord").isChecked());
    EXPECT_FALSE(wakeWord().isVisible());
    EXPECT_EQ(timeout().currentText(), QStringLiteral("5 minutes"));
}

TEST_F(SettingsViewTest, Pickers_AreNamedByTheirLabels) {
    const std::initializer_list<std::pair<MenuPicker*, QString>> pickers = {
        {&timeout(), QStringLiteral("Timeout after")}, {&device(), QStringLiteral("Input Device")}};
    for (const auto& [picker, name] : pickers) {
        const auto labels = QAccessible::queryAccessibleInterface(picker)->relations(QAccessible::Label);
        ASSERT_EQ(labels.size(), 1) << name.toStdString();
        EXPECT_EQ(labels.first().first->text(QAccessible::Name), name);
    }
}

TEST_F(SettingsViewTest, EveryControl_HasANameForAssistiveTechnology) {
    for (int tab = 0; tab < 4; ++tab) {
        view->setSelectedTab(tab);
        turnOfTheLoop();
        for (auto* control : view->findChildren<QWidget*>()) {
            if (!control->isVisible() || (control->focusPolicy() & Qt::TabFocus) == 0) {
                continue;
            }
            auto* accessible = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(accessible, nullptr);
            EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
                << control->metaObject()->className() << ' ' << control->objectName().toStdString();
        }
    }
}

} // namespace
} // namespace brivandel::testing
