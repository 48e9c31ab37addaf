#include "platform/linux/applescript/LinuxScriptHost.h"
#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11KeySender.h"
#include "platform/linux/keys/X11KeyboardLayout.h"
#include "platform/linux/keys/XkbProtocol.h"
#include "settings/KeyCapturePillView.h"
#include "settings/SettingsTest.h"
#include "settings/SettingsView.h"
#include "widgets/Button.h"
#include "widgets/PillButton.h"
#include "widgets/TextField.h"

#include <QDialog>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <linux/input-event-codes.h>
#include <xcb/xtest.h>

#include <gtest/gtest.h>

#include <functional>

namespace brivandel::testing {

namespace {

/// Longer than anything on the desktop takes; only a failing test waits for it.
constexpr std::chrono::seconds forEver{20};

x11::Connection::Deadline soon() {
    return std::chrono::steady_clock::now() + forEver;
}

class HurriedTime final : public script::ScriptTime {
public:
    [[nodiscard]] TimePoint now() const override { return std::chrono::steady_clock::now(); }
    void waitUntil(TimePoint /*time*/) override {}
    void interrupt() override {}
};

/// Blocks until something arrives that makes it hold.
bool waitUntil(const std::function<bool()>& holds) {
    bool isLate = false;
    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, &deadline, [&isLate] { isLate = true; });
    deadline.start(forEver);
    while (!holds() && !isLate) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return holds();
}

struct ReceivedKey {
    int keyCode = -1;
    QStringList modifiers;
    bool operator==(const ReceivedKey&) const = default;
};

/// The window of another process that stands for the workstation.
class Workstation {
public:
    Workstation() {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TSAN_OPTIONS"), QStringLiteral("report_bugs=0:die_after_fork=0"));
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        process_.setProcessEnvironment(environment);
        process_.start(QStringLiteral(KEY_WINDOW_PROGRAM), QStringList());
        EXPECT_EQ(readEvent().value(QStringLiteral("event")), QStringLiteral("ready"));
    }
    ~Workstation() {
        process_.closeWriteChannel();
        EXPECT_TRUE(process_.waitForFinished(static_cast<int>(std::chrono::milliseconds(forEver).count())));
    }
    Workstation(const Workstation&) = delete;
    Workstation& operator=(const Workstation&) = delete;

    /// The next key that is no modifier.
    ReceivedKey nextKey() {
        for (;;) {
            const QJsonObject event = readEvent();
            ReceivedKey key{.keyCode = event.value(QStringLiteral("keyCode")).toInt(-1), .modifiers = {}};
            if (key.keyCode >= 54 && key.keyCode <= 63) {
                continue;
            }
            for (const QJsonValue modifier : event.value(QStringLiteral("modifiers")).toArray()) {
                key.modifiers += modifier.toString();
            }
            key.modifiers.sort();
            return key;
        }
    }

private:
    QJsonObject readEvent() {
        while (!process_.canReadLine()) {
            if (!process_.waitForReadyRead(static_cast<int>(std::chrono::milliseconds(forEver).count()))) {
                ADD_FAILURE() << "the other process says nothing";
                return {};
            }
        }
        return QJsonDocument::fromJson(process_.readLine()).object();
    }

    QProcess process_;
};

/// A keyboard on the display: its keys reach whoever has the focus, as those of another process do.
class Keyboard {
public:
    Keyboard() {
        auto opened = x11::Connection::open({}, soon());
        EXPECT_TRUE(std::holds_alternative<std::unique_ptr<x11::Connection>>(opened))
            << "run through script/with-desktop";
        connection_ = std::get<std::unique_ptr<x11::Connection>>(std::move(opened));
    }
    void down(int evdevCode) const { fake(XCB_KEY_PRESS, evdevCode); }
    void up(int evdevCode) const { fake(XCB_KEY_RELEASE, evdevCode); }
    void tap(int evdevCode) const {
        down(evdevCode);
        up(evdevCode);
    }
    void unlock() const {
        xcb_xkb_latch_lock_state(connection_->xcb(), XCB_XKB_ID_USE_CORE_KBD, 0xff, 0, 0, 0, 0, 0, 0);
        connection_->sync();
    }
    /// As a desktop does for its own shortcuts.
    void grab(int evdevCode, std::uint16_t modifiers) const {
        xcb_grab_key(connection_->xcb(), 0, connection_->root(), modifiers,
                     static_cast<xcb_keycode_t>(evdevCode + xKeyCodeOffset), XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_ASYNC);
        connection_->sync();
    }

private:
    void fake(std::uint8_t type, int evdevCode) const {
        xcb_test_fake_input(connection_->xcb(), type, static_cast<std::uint8_t>(evdevCode + xKeyCodeOffset),
                            XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        connection_->sync();
    }

    std::unique_ptr<x11::Connection> connection_;
};

void bringToFront(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return window.isActiveWindow(); }));
}

std::unique_ptr<LinuxScriptHost> makeHost() {
    return std::make_unique<LinuxScriptHost>(std::make_unique<X11KeySender>(), std::make_unique<FixedStandIn>(StandIn{}),
                                             std::make_unique<HurriedTime>());
}

QString run(const QString& script) {
    const auto error = makeHost()->run(script);
    return error ? error->value(QString::fromUtf16(ScriptErrorKey::message)).toString() : QString();
}

class KeyCaptureDesktopTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(pill);
        column->addWidget(other);
        column->addWidget(save);
        save->setDefault(true);
        ASSERT_NO_FATAL_FAILURE(bringToFront(window));
    }
    void TearDown() override { keyboard.unlock(); }

    PillButton& button() { return *pill->findChild<PillButton*>(); }
    void startCapture() {
        QTest::mouseClick(&button(), Qt::LeftButton);
        ASSERT_TRUE(pill->isCapturing());
        // Until the server has given the keyboard, the desktop's shortcuts are the desktop's.
        turnOfTheLoop();
    }
    /// The key is captured, and let go.
    void awaitCapture() {
        ASSERT_TRUE(waitUntil([&] { return !pill->isCapturing(); }));
        ASSERT_TRUE(waitUntil([&] { return button().hasFocus(); }));
        turnOfTheLoop(); // the display hears in the next turn that the keyboard is free
    }

    // First: a window manager gives the focus to the window that comes last.
    Workstation workstation;
    Keyboard keyboard;
    X11KeyboardLayout layout;
    QDialog window;
    KeyCapturePillView* pill = new KeyCapturePillView(layout);
    QLineEdit* other = new QLineEdit;
    QPushButton* save = new QPushButton;
};

TEST_F(KeyCaptureDesktopTest, EveryKeyOfTheKeyboard_IsCapturedAndSentAsItself) {
    QSignalSpy saved(save, &QPushButton::clicked);
    std::vector<CapturedKey> captured;
    for (const KeyCodePair& pair : keyCodePairs()) {
        const bool isModifier = pair.virtualKeyCode >= 54 && pair.virtualKeyCode <= 63;
        const bool isSound = pair.virtualKeyCode >= 72 && pair.virtualKeyCode <= 74;
        if (isModifier || isSound) {
            continue;
        }
        ASSERT_NO_FATAL_FAILURE(startCapture());
        keyboard.tap(pair.evdevCode);
        ASSERT_NO_FATAL_FAILURE(awaitCapture());
        ASSERT_TRUE(pill->capturedKey());
        EXPECT_EQ(pill->capturedKey()->keyCode, pair.virtualKeyCode);
        EXPECT_EQ(pill->capturedKey()->modifierFlags, 0) << pair.virtualKeyCode;
        captured.push_back(*pill->capturedKey());
        keyboard.unlock();
    }
    EXPECT_GT(captured.size(), 95U);
    EXPECT_EQ(saved.count(), 0);
    EXPECT_TRUE(other->text().isEmpty());
    EXPECT_TRUE(window.isVisible());

    for (const CapturedKey& key : captured) {
        EXPECT_EQ(run(key.appleScript), QString()) << key.keyCode;
        EXPECT_EQ(workstation.nextKey().keyCode, key.keyCode);
        keyboard.unlock();
    }
}

TEST_F(KeyCaptureDesktopTest, Modifiers_AreCapturedWithTheirKeyAndSentAgain) {
    const std::initializer_list<std::pair<int, std::int64_t>> modifiers = {
        {KEY_LEFTCTRL, commandModifier}, {KEY_RIGHTCTRL, commandModifier}, {KEY_LEFTMETA, controlModifier},
        {KEY_LEFTALT, optionModifier},   {KEY_LEFTSHIFT, shiftModifier},   {KEY_RIGHTSHIFT, shiftModifier}};
    for (const auto& [evdevCode, flag] : modifiers) {
        ASSERT_NO_FATAL_FAILURE(startCapture());
        keyboard.down(evdevCode);
        keyboard.tap(KEY_K);
        keyboard.up(evdevCode);
        ASSERT_NO_FATAL_FAILURE(awaitCapture());
        EXPECT_EQ(pill->capturedKey()->keyCode, 40);
        EXPECT_EQ(pill->capturedKey()->modifierFlags, flag) << evdevCode;
    }
    ASSERT_NO_FATAL_FAILURE(startCapture());
    for (const int key : {KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTALT, KEY_LEFTMETA}) {
        keyboard.down(key);
    }
    keyboard.tap(KEY_K);
    for (const int key : {KEY_LEFTMETA, KEY_LEFTALT, KEY_LEFTSHIFT, KEY_LEFTCTRL}) {
        keyboard.up(key);
    }
    ASSERT_NO_FATAL_FAILURE(awaitCapture());
    EXPECT_EQ(pill->capturedKey()->displayString, QStringLiteral("⌃⌥⇧⌘K"));
    EXPECT_EQ(run(pill->capturedKey()->appleScript), QString());
    EXPECT_EQ(workstation.nextKey(),
              (ReceivedKey{.keyCode = 40,
                           .modifiers = {QStringLiteral("command"), QStringLiteral("control"),
                                         QStringLiteral("option"), QStringLiteral("shift")}}));
}

TEST_F(KeyCaptureDesktopTest, ModifierAlone_IsNotCaptured) {
    ASSERT_NO_FATAL_FAILURE(startCapture());
    for (const int key : {KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_LEFTMETA, KEY_RIGHTALT, KEY_VOLUMEUP}) {
        keyboard.tap(key);
    }
    // The next key comes after them.
    keyboard.tap(KEY_SPACE);
    ASSERT_NO_FATAL_FAILURE(awaitCapture());
    EXPECT_EQ(pill->capturedKey()->keyCode, 49);
}

TEST_F(KeyCaptureDesktopTest, ShortcutsOfTheWindow_SeeNothing) {
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_W), &window);
    QSignalSpy activated(&shortcut, &QShortcut::activated);
    ASSERT_NO_FATAL_FAILURE(startCapture());
    keyboard.down(KEY_LEFTCTRL);
    keyboard.tap(KEY_W);
    keyboard.up(KEY_LEFTCTRL);
    ASSERT_NO_FATAL_FAILURE(awaitCapture());
    EXPECT_EQ(pill->capturedKey()->displayString, QStringLiteral("⌘W"));
    EXPECT_EQ(activated.count(), 0);
    keyboard.down(KEY_LEFTCTRL);
    keyboard.tap(KEY_W);
    keyboard.up(KEY_LEFTCTRL);
    EXPECT_TRUE(waitUntil([&] { return activated.count() == 1; })) << "it has them back";
}

TEST_F(KeyCaptureDesktopTest, ShortcutsOfTheDesktop_AreCaptured) {
    Keyboard desktop;
    desktop.grab(KEY_T, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1);
    ASSERT_NO_FATAL_FAILURE(startCapture());
    keyboard.down(KEY_LEFTCTRL);
    keyboard.down(KEY_LEFTALT);
    keyboard.tap(KEY_T);
    keyboard.up(KEY_LEFTALT);
    keyboard.up(KEY_LEFTCTRL);
    ASSERT_NO_FATAL_FAILURE(awaitCapture());
    EXPECT_EQ(pill->capturedKey()->displayString, QStringLiteral("⌥⌘T"));
}

TEST_F(KeyCaptureDesktopTest, AnotherWindowInFront_EndsIt) {
    ASSERT_NO_FATAL_FAILURE(startCapture());
    QWidget another;
    bringToFront(another);
    EXPECT_TRUE(waitUntil([&] { return !pill->isCapturing(); }));
    EXPECT_FALSE(pill->capturedKey());
    bringToFront(window);
    EXPECT_TRUE(button().hasFocus());
}

class SpokenShortcutTest : public SettingsTest {};

TEST_F(SpokenShortcutTest, CapturedSavedLoadedSpoken_ArrivesAsTheSameKey) {
    Workstation workstation;
    const Keyboard keyboard;
    const X11KeyboardLayout realLayout;
    {
        SettingsView view(controller(), realLayout, advice());
        view.editCustomCommand({});
        ASSERT_NO_FATAL_FAILURE(bringToFront(view));
        click(find<Button>(view, "addCommand"));
        ASSERT_NE(view.findChild<QDialog*>(), nullptr);
        auto& editor = *view.findChild<QDialog*>();
        ASSERT_TRUE(waitUntil([&] { return editor.isActiveWindow(); }));
        QTest::keyClicks(&find<TextField>(editor, "newTrigger"), QStringLiteral("Open Mixer"));
        click(find<Button>(editor, "add"));
        auto& pill = find<KeyCapturePillView>(editor, "shortcut");
        click(find<PillButton>(editor, "pill"));
        keyboard.down(KEY_LEFTSHIFT);
        keyboard.tap(KEY_X);
        keyboard.up(KEY_LEFTSHIFT);
        ASSERT_TRUE(waitUntil([&] { return !pill.isCapturing(); }));
        click(find<Button>(editor, "save"));
    }
    ASSERT_EQ(storedCommands()->size(), 1);

    startProgram([](Platform& platform) { platform.scriptHost = makeHost(); });
    scripted().permissions.answerSpeech(SpeechAuthorization::Authorized);
    scripted().permissions.answerMicrophone(true);
    scripted().mainQueue.runDue();
    controller().setIsListening(true);
    controller().handleRecognitionText(QStringLiteral("hey logic open mixer"));
    scripted().mainQueue.advance(std::chrono::seconds{5});
    EXPECT_EQ(workstation.nextKey(), (ReceivedKey{.keyCode = 7, .modifiers = {QStringLiteral("shift")}}));
    EXPECT_EQ(controller().lastCommand(), QStringLiteral("open mixer"));
}

} // namespace
} // namespace brivandel::testing
