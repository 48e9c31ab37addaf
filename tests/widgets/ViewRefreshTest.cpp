#include "widgets/ViewRefresh.h"

#include <QCoreApplication>
#include <QWidget>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class ViewRefreshTest : public testing::Test {
protected:
    static void turnOfTheLoop() { QCoreApplication::processEvents(); }

    QWidget view;
    int redraws = 0;
    ViewRefresh* refresh = new ViewRefresh(view, [this] { ++redraws; });
};

TEST_F(ViewRefreshTest, ManyRequestsInOneTurn_RedrawOnce) {
    view.show();
    turnOfTheLoop();
    for (int request = 0; request < 100; ++request) {
        refresh->request();
    }
    EXPECT_EQ(redraws, 0);
    turnOfTheLoop();
    EXPECT_EQ(redraws, 1);
    refresh->request();
    turnOfTheLoop();
    EXPECT_EQ(redraws, 2);
}

TEST_F(ViewRefreshTest, HiddenView_IsRedrawnOnlyWhenShown) {
    refresh->request();
    refresh->request();
    turnOfTheLoop();
    EXPECT_EQ(redraws, 0);
    view.show();
    EXPECT_EQ(redraws, 1);
    turnOfTheLoop();
    EXPECT_EQ(redraws, 1);
}

TEST_F(ViewRefreshTest, ViewHiddenBeforeItsTurn_WaitsUntilItIsShown) {
    view.show();
    turnOfTheLoop();
    refresh->request();
    view.hide();
    turnOfTheLoop();
    EXPECT_EQ(redraws, 0);
    view.show();
    EXPECT_EQ(redraws, 1);
}

TEST_F(ViewRefreshTest, Flush_RedrawsAtOnceAndOnlyWhatIsDue) {
    refresh->flush();
    EXPECT_EQ(redraws, 0);
    refresh->request();
    refresh->flush();
    EXPECT_EQ(redraws, 1);
}

} // namespace
} // namespace brivandel
