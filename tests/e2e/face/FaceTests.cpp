#include "e2e/face/RunningProgram.h"
#include "e2e/face/Screen.h"
#include "widgets/Colors.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <utility>

// The keys that are pressed, by their X names.
#define XK_MISCELLANY
#include <X11/keysymdef.h>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 20s; // for any one thing to happen, on a machine that has other things to do

enum class Tray { XEmbed, StatusNotifier };

const auto welcomeTitle = QStringLiteral("Welcome to Brivandel");
const auto popoverTitle = QStringLiteral("Brivandel");

// The menu's items, by how often the arrow key must be pressed to come to them.
enum MenuItem : int { Listening = 1, Settings, CommandReference, SetupInstructions, ShowStatus, Quit };

} // namespace

class Face : public testing::TestWithParam<Tray> {
protected:
    Face() {
        qputenv("HOME", folder_.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", folder_.filePath(QStringLiteral("config")).toLocal8Bit());
        qputenv("XDG_STATE_HOME", folder_.filePath(QStringLiteral("state")).toLocal8Bit());
    }

    void startTray() {
        if (GetParam() == Tray::XEmbed) {
            tray_.emplace(
                QStringLiteral("trayer"),
                QStringList{QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"),
                            QStringLiteral("right"), QStringLiteral("--SetDockType"), QStringLiteral("true"),
                            QStringLiteral("--widthtype"), QStringLiteral("pixel"), QStringLiteral("--width"),
                            QStringLiteral("200"), QStringLiteral("--height"), QStringLiteral("26")});
            ASSERT_TRUE(screen_.waitUntil(
                [this] { return !screen_.windowsOfClass(QStringLiteral("trayer")).empty(); }, patience));
            return;
        }
        const QString settings = folder_.filePath(QStringLiteral("config/lxqt/panel.conf"));
        QDir().mkpath(QFileInfo(settings).absolutePath());
        QFile file(settings);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("panels=panel1\n[panel1]\nplugins=statusnotifier\nposition=Top\npanelSize=32\nwidth=100\n"
                   "width-percent=true\ndesktop=0\n[statusnotifier]\ntype=statusnotifier\nalignment=Right\n");
        file.close();
        tray_.emplace(QStringLiteral("lxqt-panel"), QStringList());
        ASSERT_TRUE(screen_.waitUntil(
            [this] { return !screen_.windowsOfClass(QStringLiteral("lxqt-panel")).empty(); }, patience));
    }

    void startProgram(const QStringList& arguments = {}) {
        program_.emplace(builtProgram(QStringLiteral("brivandel")), arguments);
        ASSERT_TRUE(waitForWindow(welcomeTitle)) << "the program did not come up";
    }

    [[nodiscard]] static std::optional<int> startAnother(const char* argument) {
        return run(builtProgram(QStringLiteral("brivandel")), {QString::fromLatin1(argument)});
    }

    // Where the tray shows items: at the right end of both.
    [[nodiscard]] QRect itemPlace() const {
        const QRect screen = screen_.geometry();
        return GetParam() == Tray::XEmbed ? QRect(screen.right() - 24, 0, 25, 26)
                                          : QRect(screen.right() - 31, 0, 32, 32);
    }

    [[nodiscard]] bool itemIsGreen() const {
        constexpr int someOfThePlate = 60;
        return screen_.countOf(fillColor(NamedColor::Green, Appearance::Light), itemPlace()) > someOfThePlate;
    }
    // The idle icon has an edge of the other kind, so both extremes are in it.
    [[nodiscard]] bool itemIsIdle() const {
        return !itemIsGreen() &&
               screen_.countOf(color(NamedColor::Primary, Appearance::Light), itemPlace()) > 10 &&
               screen_.countOf(Qt::white, itemPlace()) > 10;
    }
    [[nodiscard]] bool waitForIdleItem() {
        return screen_.waitUntil([this] { return itemIsIdle(); }, patience);
    }
    [[nodiscard]] bool waitForGreenItem() {
        return screen_.waitUntil([this] { return itemIsGreen(); }, patience);
    }

    [[nodiscard]] std::optional<Screen::Window> window(const QString& title) const {
        const auto found = screen_.windowsTitled(title);
        EXPECT_LE(found.size(), 1) << title.toStdString() << " is open twice";
        return found.empty() ? std::nullopt : std::optional(found.front());
    }
    [[nodiscard]] bool waitForWindow(const QString& title) {
        return screen_.waitUntil([&] { return window(title).has_value(); }, patience);
    }
    [[nodiscard]] bool waitForNoWindow(const QString& title) {
        return screen_.waitUntil([&] { return !window(title); }, patience);
    }
    // The frame counts, too, and a panel takes room.
    [[nodiscard]] bool isInTheMiddle(const QString& title) const {
        const auto now = window(title);
        const QPoint middle = screen_.geometry().center();
        return now && std::abs(now->geometry.center().x() - middle.x()) < 5 &&
               std::abs(now->geometry.center().y() - middle.y()) < 40;
    }
    // The popover and the tray icon's own window bear the same title.
    [[nodiscard]] std::optional<Screen::Window> popover() const {
        for (const auto& found : screen_.windowsTitled(popoverTitle)) {
            if (found.geometry.width() == 300) {
                return found;
            }
        }
        return std::nullopt;
    }
    [[nodiscard]] bool waitForPopover() {
        return screen_.waitUntil([this] { return popover().has_value(); }, patience);
    }
    [[nodiscard]] bool waitForNoPopover() {
        return screen_.waitUntil([this] { return !popover(); }, patience);
    }

    /// A click gives a window the keyboard, but only once the window manager has heard of it.
    void pressEscapeInPopover() {
        const auto found = popover();
        ASSERT_TRUE(found);
        screen_.click(found->geometry.center());
        ASSERT_TRUE(screen_.waitForFocus(found->id, patience)) << "the keyboard does not go to it";
        screen_.press(XK_Escape);
    }

    // The menu is the program's own under one kind of tray and the panel's under the other: a window that is
    // neither of the program's titled ones nor the tray's.
    void choose(MenuItem item) {
        const auto windowsBefore = screen_.menuCount();
        screen_.click(itemPlace().center());
        ASSERT_TRUE(screen_.waitUntil([&] { return screen_.menuCount() > windowsBefore; }, patience))
            << "no menu opened";
        for (int step = 0; step < item; ++step) {
            screen_.press(XK_Down);
        }
        screen_.press(XK_Return);
        ASSERT_TRUE(screen_.waitUntil([&] { return screen_.menuCount() == windowsBefore; }, patience))
            << "the menu did not close";
    }

    QTemporaryDir folder_;
    Screen screen_;
    std::optional<RunningProgram> tray_;
    std::optional<RunningProgram> program_;
};

TEST_P(Face, Item_IsSeenAndItsMenuSwitchesListening) {
    startTray();
    startProgram();
    ASSERT_TRUE(waitForIdleItem());
    choose(Listening);
    ASSERT_TRUE(waitForGreenItem());
    choose(Listening);
    EXPECT_TRUE(waitForIdleItem());
}

TEST_P(Face, TrayThatComesLaterOrAgain_ShowsTheItem) {
    startProgram();
    startTray();
    EXPECT_TRUE(waitForIdleItem());
    tray_.reset();
    ASSERT_TRUE(screen_.waitUntil([this] { return !itemIsIdle(); }, patience));
    startTray();
    EXPECT_TRUE(waitForIdleItem());
    choose(Listening);
    EXPECT_TRUE(waitForGreenItem());
}

TEST_P(Face, ShowStatus_OpensThePopoverUnderTheItem) {
    startTray();
    startProgram();
    ASSERT_TRUE(waitForIdleItem());
    choose(ShowStatus);
    ASSERT_TRUE(waitForPopover());
    const QRect place = popover()->geometry;
    EXPECT_TRUE(screen_.geometry().contains(place));
    EXPECT_LT(place.top(), 260) << "it is not near the item";
    EXPECT_EQ(place.right(), screen_.geometry().right());
    choose(ShowStatus);
    EXPECT_TRUE(waitForNoPopover());
}

TEST_P(Face, ClickElsewhereOrEscape_ClosesThePopover) {
    startTray();
    startProgram();
    ASSERT_TRUE(waitForIdleItem());
    ASSERT_EQ(startAnother("--popover"), 0);
    ASSERT_TRUE(waitForPopover());
    pressEscapeInPopover();
    EXPECT_TRUE(waitForNoPopover());

    ASSERT_EQ(startAnother("--popover"), 0);
    ASSERT_TRUE(waitForPopover());
    screen_.click(QPoint(20, screen_.geometry().bottom() - 20));
    EXPECT_TRUE(waitForNoPopover());
}

TEST_P(Face, Walkthrough_ComesBackInTheMiddleAtItsFirstPage) {
    startTray();
    startProgram();
    ASSERT_TRUE(waitForIdleItem());
    const auto first = window(welcomeTitle);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->geometry.size(), QSize(520, 520));
    screen_.close(first->id);
    ASSERT_TRUE(waitForNoWindow(welcomeTitle));
    choose(SetupInstructions);
    ASSERT_TRUE(waitForWindow(welcomeTitle));
    screen_.move(window(welcomeTitle)->id, QPoint(3, 300));
    ASSERT_TRUE(screen_.waitUntil([this] { return window(welcomeTitle)->geometry.left() < 50; }, patience));
    choose(SetupInstructions);
    EXPECT_TRUE(screen_.waitUntil([this] { return isInTheMiddle(welcomeTitle); }, patience));
}

TEST_P(Face, EachWindow_OpensOnceAndComesBackInTheMiddle) {
    startTray();
    startProgram();
    ASSERT_TRUE(waitForIdleItem());
    const std::pair<MenuItem, QString> windows[] = {
        {Settings, QStringLiteral("Brivandel Settings")},
        {CommandReference, QStringLiteral("Voice Commands Reference")}};
    for (const auto& item : windows) {
        const QString& title = item.second;
        choose(item.first);
        ASSERT_TRUE(waitForWindow(title));
        screen_.close(window(title)->id);
        ASSERT_TRUE(waitForNoWindow(title));
        choose(item.first);
        ASSERT_TRUE(waitForWindow(title));
        choose(item.first);
        EXPECT_TRUE(screen_.waitUntil([&] { return isInTheMiddle(title); }, patience));
    }
}

TEST_P(Face, FurtherStarts_DriveTheRunningProgram) {
    startTray();
    startProgram();
    ASSERT_TRUE(waitForIdleItem());
    EXPECT_EQ(startAnother("--toggle"), 0);
    EXPECT_TRUE(waitForGreenItem());
    EXPECT_EQ(startAnother("--toggle"), 0);
    EXPECT_TRUE(waitForIdleItem());
    EXPECT_EQ(run(builtProgram(QStringLiteral("brivandel")), {}), 0);
    EXPECT_TRUE(waitForPopover());
    EXPECT_EQ(startAnother("--quit"), 0);
    EXPECT_EQ(program_->end(), 0);
}

// A desktop without any tray.
class BareFace : public Face {};

TEST_P(BareFace, FurtherStart_OpensThePopoverAndEscapeClosesIt) {
    startProgram();
    for (int time = 0; time < 2; ++time) {
        ASSERT_EQ(run(builtProgram(QStringLiteral("brivandel")), {}), 0);
        ASSERT_TRUE(waitForPopover());
        EXPECT_TRUE(screen_.geometry().contains(popover()->geometry));
        pressEscapeInPopover();
        ASSERT_TRUE(waitForNoPopover());
    }
}

INSTANTIATE_TEST_SUITE_P(WithoutATray, BareFace, testing::Values(Tray::XEmbed),
                         [](const auto&) { return "NoTray"; });

INSTANTIATE_TEST_SUITE_P(Trays, Face, testing::Values(Tray::XEmbed, Tray::StatusNotifier),
                         [](const auto& tray) {
                             return tray.param == Tray::XEmbed ? "XEmbed" : "StatusNotifier";
                         });

} // namespace brivandel
