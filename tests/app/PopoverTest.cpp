#include "app/Popover.h"

#include "platform/scripted/ScriptedDesktop.h"
#include "platform/scripted/VirtualMainQueue.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class PopoverTest : public testing::Test {
protected:
    static QWidget* makeContent() {
        auto* content = new QWidget;
        content->setFixedSize(300, 200);
        return content;
    }
    static QRect screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }

    ScriptedPointerPresses presses;
    VirtualMainQueue queue;
    QWidget* content = makeContent();
    Popover popover{content, presses, queue};
    const QRect item{400, 0, 22, 22};
};

TEST_F(PopoverTest, BelowAnItemAtTheTop_IsCentredUnderIt) {
    popover.showBeside(item);
    EXPECT_EQ(popover.geometry().top(), item.bottom() + 1 + 4);
    EXPECT_NEAR(popover.geometry().center().x(), item.center().x(), 1);
    EXPECT_EQ(popover.size(), QSize(300, 200));
}

TEST_F(PopoverTest, AtTheBottom_StandsAboveTheItem) {
    const QRect low(400, screen().bottom() - 21, 22, 22);
    popover.showBeside(low);
    EXPECT_EQ(popover.geometry().bottom(), low.top() - 4 - 1);
}

TEST_F(PopoverTest, InACorner_StaysOnTheScreen) {
    popover.showBeside(QRect(screen().right() - 5, 0, 22, 22));
    EXPECT_EQ(popover.geometry().right(), screen().right());
    popover.close();
    popover.showBeside(QRect(0, 0, 5, 5));
    EXPECT_EQ(popover.geometry().left(), screen().left());
}

TEST_F(PopoverTest, GrowingAtTheBottom_GrowsUpwards) {
    const QRect low(400, screen().bottom() - 21, 22, 22);
    popover.showBeside(low);
    content->setFixedSize(300, 260);
    QCoreApplication::processEvents();
    EXPECT_EQ(popover.height(), 260);
    EXPECT_EQ(popover.geometry().bottom(), low.top() - 4 - 1);
}

TEST_F(PopoverTest, PressOutside_ClosesIt) {
    popover.setItemPlace(item);
    popover.showBeside(item);
    presses.press(popover.geometry().center());
    EXPECT_TRUE(popover.isVisible());
    presses.press(popover.geometry().bottomRight() + QPoint(40, 40));
    EXPECT_FALSE(popover.isVisible());
    EXPECT_FALSE(presses.isWatched());
}

TEST_F(PopoverTest, PressOnTheItem_LeavesItToTheMenu) {
    popover.setItemPlace(item);
    popover.showBeside(item);
    presses.press(item.center());
    queue.advance(1s);
    EXPECT_TRUE(popover.isVisible());
}

TEST_F(PopoverTest, ItemWhosePlaceIsNotKnown_HasAMomentToSayThatItWasPressed) {
    popover.setItemPlace(QRect());
    popover.showBeside(item);
    const QPoint outside = popover.geometry().bottomRight() + QPoint(40, 40);
    presses.press(outside);
    queue.advance(199ms);
    popover.keepOpen();
    queue.advance(1s);
    EXPECT_TRUE(popover.isVisible());

    presses.press(outside);
    queue.advance(199ms);
    EXPECT_TRUE(popover.isVisible());
    queue.advance(1ms);
    EXPECT_FALSE(popover.isVisible());
}

TEST_F(PopoverTest, PressedAway_IsRememberedForAMoment) {
    popover.setItemPlace(QRect());
    popover.showBeside(item);
    EXPECT_FALSE(popover.wasJustPressedAway());
    presses.press(popover.geometry().bottomRight() + QPoint(40, 40));
    queue.advance(200ms);
    EXPECT_TRUE(popover.wasJustPressedAway());
    queue.advance(999ms);
    EXPECT_TRUE(popover.wasJustPressedAway());
    queue.advance(1ms);
    EXPECT_FALSE(popover.wasJustPressedAway());
}

TEST_F(PopoverTest, ClosedAndOpenedAgain_IsNotClosedByAPressBefore) {
    popover.setItemPlace(QRect());
    popover.showBeside(item);
    presses.press(popover.geometry().bottomRight() + QPoint(40, 40));
    popover.close();
    popover.showBeside(item);
    queue.advance(1s);
    EXPECT_TRUE(popover.isVisible());
}

TEST_F(PopoverTest, Escape_ClosesIt) {
    popover.showBeside(item);
    QTest::keyClick(&popover, Qt::Key_Escape);
    EXPECT_FALSE(popover.isVisible());
}

} // namespace
} // namespace brivandel
