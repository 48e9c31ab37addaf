#include "settings/KeyCapturePillView.h"
#include "settings/SettingsTest.h"
#include "widgets/PillButton.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace brivandel::testing {

namespace {

constexpr Key keyK{.keyCode = 40, .key = Qt::Key_K};
constexpr Key escape{.keyCode = 53, .key = Qt::Key_Escape};
constexpr Key returnKey{.keyCode = 36, .key = Qt::Key_Return};
constexpr Key tab{.keyCode = 48, .key = Qt::Key_Tab};
constexpr Key space{.keyCode = 49, .key = Qt::Key_Space};

class KeyCaptureTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto* column = new QVBoxLayout(&dialog);
        column->addWidget(&other);
        column->addWidget(&pill);
        column->addWidget(&save);
        save.setDefault(true);
        dialog.show();
        dialog.activateWindow();
        turnOfTheLoop();
    }
    void TearDown() override {
        // The layout has made them the dialog's children, and they are members of this.
        for (QWidget* each : std::initializer_list<QWidget*>{&other, &pill, &save}) {
            each->setParent(nullptr);
        }
    }
    PillButton& button() { return *pill.findChild<PillButton*>(); }
    void click() {
        QTest::mouseClick(&button(), Qt::LeftButton);
        turnOfTheLoop();
    }

    ScriptedKeyboardLayout layout;
    QDialog dialog;
    QLineEdit other;
    KeyCapturePillView pill{layout};
    QPushButton save;
};

TEST_F(KeyCaptureTest, Idle_OffersToCapture) {
    EXPECT_FALSE(pill.isCapturing());
    EXPECT_FALSE(pill.capturedKey());
    EXPECT_EQ(button().text(), QStringLiteral("Click to capture"));
    EXPECT_EQ(button().symbol(), QStringLiteral("keyboard"));
    EXPECT_EQ(button().fill(), NamedColor::Secondary);
}

TEST_F(KeyCaptureTest, Click_WaitsForAKey) {
    click();
    EXPECT_TRUE(pill.isCapturing());
    EXPECT_EQ(button().text(), QStringLiteral("Press a key..."));
    EXPECT_EQ(button().symbol(), QStringLiteral("keyboard"));
    EXPECT_EQ(button().fill(), NamedColor::Orange);
}

TEST_F(KeyCaptureTest, KeyWithModifiers_IsTaken) {
    QSignalSpy captured(&pill, &KeyCapturePillView::keyCaptured);
    click();
    press({40, Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier | Qt::KeypadModifier});
    EXPECT_FALSE(pill.isCapturing());
    ASSERT_TRUE(pill.capturedKey());
    EXPECT_EQ(*pill.capturedKey(), captureKey(40, commandModifier | shiftModifier, layout));
    EXPECT_EQ(pill.capturedKey()->modifierFlags, 0x120000);
    EXPECT_EQ(pill.capturedKey()->displayString, QStringLiteral("⇧⌘K"));
    EXPECT_EQ(button().text(), QStringLiteral("⇧⌘K"));
    EXPECT_TRUE(button().symbol().isEmpty());
    EXPECT_EQ(button().fill(), NamedColor::Blue);
    EXPECT_EQ(captured.count(), 1);
}

TEST_F(KeyCaptureTest, EachModifier_HasItsBit) {
    const std::initializer_list<std::pair<Qt::KeyboardModifier, std::int64_t>> bits = {
        {Qt::ShiftModifier, 0x20000},    {Qt::MetaModifier, 0x40000}, {Qt::AltModifier, 0x80000},
        {Qt::ControlModifier, 0x100000}, {Qt::KeypadModifier, 0},     {Qt::GroupSwitchModifier, 0}};
    for (const auto& [modifier, bit] : bits) {
        click();
        press({40, Qt::Key_K, modifier});
        release(keyK);
        EXPECT_EQ(pill.capturedKey()->modifierFlags, bit);
    }
}

TEST_F(KeyCaptureTest, ModifiersAlone_AreNoKey) {
    click();
    for (std::uint16_t keyCode = 54; keyCode <= 63; ++keyCode) {
        const Key key{.keyCode = keyCode, .key = Qt::Key_Shift};
        EXPECT_TRUE(press(key));
        release(key);
        EXPECT_TRUE(pill.isCapturing()) << keyCode;
    }
    EXPECT_FALSE(pill.capturedKey());
}

TEST_F(KeyCaptureTest, EveryOtherKey_IsTaken) {
    for (std::uint16_t keyCode = 0; keyCode < 128; ++keyCode) {
        if (keyCode >= 54 && keyCode <= 63) {
            continue;
        }
        const Key key{.keyCode = keyCode, .key = Qt::Key_A};
        click();
        press(key);
        release(key);
        EXPECT_EQ(pill.capturedKey()->keyCode, keyCode);
    }
}

TEST_F(KeyCaptureTest, KeyThatNobodyKnows_IsSwallowed) {
    click();
    QKeyEvent unknown(QEvent::KeyPress, Qt::Key_MediaPlay, {}, 0, 0, 0);
    QApplication::sendEvent(keyboardHolder(), &unknown);
    EXPECT_TRUE(unknown.isAccepted());
    EXPECT_TRUE(pill.isCapturing());
}

TEST_F(KeyCaptureTest, KeysOfTheWindow_AreTakenAndDoNothingElse) {
    QSignalSpy saved(&save, &QPushButton::clicked);
    for (const Key& key : {escape, returnKey, tab, space}) {
        click();
        EXPECT_TRUE(press(key)) << "no shortcut of the window sees it";
        EXPECT_EQ(pill.capturedKey()->keyCode, key.keyCode);
        // Held for a while, as a hand does.
        for (int repetition = 0; repetition < 3; ++repetition) {
            EXPECT_TRUE(press({key.keyCode, key.key, {}, true}));
            release({key.keyCode, key.key, {}, true});
        }
        release(key);
        turnOfTheLoop();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_FALSE(pill.isCapturing());
        EXPECT_EQ(saved.count(), 0);
        EXPECT_TRUE(button().hasFocus()) << "the keyboard is where the user was";
    }
}

TEST_F(KeyCaptureTest, AfterTheCapture_KeysAreTheWindowsAgain) {
    QSignalSpy saved(&save, &QPushButton::clicked);
    click();
    press(keyK);
    release(keyK);
    EXPECT_FALSE(press(returnKey));
    EXPECT_EQ(saved.count(), 1);
    EXPECT_EQ(pill.capturedKey()->keyCode, 40);
}

TEST_F(KeyCaptureTest, NextKeyBeforeTheFirstIsLetGo_IsTheWindows) {
    QSignalSpy saved(&save, &QPushButton::clicked);
    click();
    press(keyK);
    EXPECT_FALSE(press(returnKey));
    EXPECT_EQ(saved.count(), 1);
}

TEST_F(KeyCaptureTest, KeyHeldSinceBefore_IsNotTaken) {
    click();
    press({49, Qt::Key_Space, {}, true});
    EXPECT_TRUE(pill.isCapturing());
    EXPECT_FALSE(pill.capturedKey());
}

TEST_F(KeyCaptureTest, IdlePill_RecordsNothing) {
    pill.setFocus();
    press(keyK);
    EXPECT_FALSE(pill.capturedKey());
    other.setFocus();
    QTest::keyClicks(&other, QStringLiteral("k"));
    EXPECT_EQ(other.text(), QStringLiteral("k"));
    EXPECT_FALSE(pill.capturedKey());
}

TEST_F(KeyCaptureTest, SecondClick_KeepsWhatWasThere) {
    const auto old = captureKey(1, 0, layout);
    pill.setCapturedKey(old);
    click();
    click();
    EXPECT_FALSE(pill.isCapturing());
    EXPECT_EQ(pill.capturedKey(), old);
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
    EXPECT_TRUE(button().hasFocus());
}

TEST_F(KeyCaptureTest, SecondCapture_ReplacesTheFirst) {
    click();
    press(keyK);
    release(keyK);
    click();
    press(escape);
    release(escape);
    EXPECT_EQ(pill.capturedKey()->keyCode, 53);
    EXPECT_EQ(button().text(), QStringLiteral("⎋"));
}

TEST_F(KeyCaptureTest, ClickElsewhere_EndsItWithoutAChange) {
    click();
    QTest::mouseClick(&dialog, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_FALSE(pill.isCapturing());
    click();
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_FALSE(pill.isCapturing());
    EXPECT_TRUE(other.hasFocus()) << "the click did what a click does";
    EXPECT_FALSE(pill.capturedKey());
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
}

TEST_F(KeyCaptureTest, ClosingTheWindow_EndsIt) {
    click();
    dialog.close();
    EXPECT_FALSE(pill.isCapturing());
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
}

TEST_F(KeyCaptureTest, LosingTheKeyboard_EndsIt) {
    click();
    other.setFocus();
    EXPECT_FALSE(pill.isCapturing());
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
}

TEST_F(KeyCaptureTest, DestroyedMeanwhile_LetsGoOfTheKeyboard) {
    {
        KeyCapturePillView brief(layout);
        brief.show();
        QTest::mouseClick(brief.findChild<PillButton*>(), Qt::LeftButton);
        EXPECT_TRUE(brief.isCapturing());
    }
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
}

TEST_F(KeyCaptureTest, Keyboard_StartsIt) {
    pill.setFocus();
    EXPECT_TRUE(button().hasFocus());
    QTest::keyClick(&button(), Qt::Key_Space);
    EXPECT_TRUE(pill.isCapturing());
}

TEST(ScriptedKeyboard, ScanCodes_AreKeyCodesFromOne) {
    const ScriptedKeyboardLayout layout;
    EXPECT_FALSE(layout.keyCodeForNativeKey({0}));
    EXPECT_EQ(layout.keyCodeForNativeKey({1}), 0);
    EXPECT_EQ(layout.keyCodeForNativeKey({128}), 127);
    EXPECT_FALSE(layout.keyCodeForNativeKey({129}));
}

} // namespace
} // namespace brivandel::testing
