#include "app/StatusItem.h"

#include "platform/scripted/ScriptedDesktop.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <gtest/gtest.h>

namespace brivandel {

namespace {

class StatusItemTest : public testing::Test {
protected:
    StatusItemTest() {
        menu.addAction(QStringLiteral("Show Status"));
        item.setMenu(&menu);
        QObject::connect(&item, &StatusItem::menuWillOpen, &item, [this] { ++openings; });
    }

    void click(QSystemTrayIcon::ActivationReason reason) {
        auto* icon = item.findChild<QSystemTrayIcon*>();
        ASSERT_NE(icon, nullptr);
        Q_EMIT icon->activated(reason);
    }

    ScriptedStatusArea area;
    QMenu menu;
    StatusItem item{area};
    int openings = 0;
};

TEST_F(StatusItemTest, AreaThatOnlyTellsOfClicks_HasTheMenuOpenedForIt) {
    click(QSystemTrayIcon::Trigger);
    EXPECT_EQ(openings, 1);
    click(QSystemTrayIcon::Context);
    EXPECT_EQ(openings, 1) << "that one the area opens";
}

TEST_F(StatusItemTest, AreaThatOpensMenus_IsLeftToIt) {
    area.setOpensMenus(true);
    for (const auto reason :
         {QSystemTrayIcon::Trigger, QSystemTrayIcon::MiddleClick, QSystemTrayIcon::Context}) {
        click(reason);
    }
    EXPECT_EQ(openings, 0);
}

TEST_F(StatusItemTest, AreaThatComesBack_GetsAnItemThatOpensTheMenuOnce) {
    area.setIsThere(false);
    EXPECT_EQ(item.findChild<QSystemTrayIcon*>(), nullptr);
    area.setIsThere(true);
    click(QSystemTrayIcon::Trigger);
    EXPECT_EQ(openings, 1);
}

} // namespace

} // namespace brivandel
