#include "platform/Desktop.h"

#include "AdapterTest.h"

#include <QList>

namespace brivandel {

namespace {

class DesktopTest : public AdapterTest {
protected:
    std::unique_ptr<Desktop> desktop = makeDesktop();
};

TEST_F(DesktopTest, Program_IsAnAccessory) {
    EXPECT_EQ(calls(), QStringList(QStringLiteral("policy 1")));
}

TEST_F(DesktopTest, Activation_IgnoresOtherPrograms) {
    calls();
    desktop->activation->activate();
    EXPECT_EQ(calls(), QStringList(QStringLiteral("activate 1")));
}

TEST_F(DesktopTest, MenuBar_IsThereAndOpensMenus) {
    EXPECT_TRUE(desktop->statusArea->isThere());
    EXPECT_TRUE(desktop->statusArea->opensMenus());
    EXPECT_FALSE(desktop->statusArea->hasSquareIcons());
}

TEST_F(DesktopTest, Appearance_IsToldWhenItChanges) {
    using Preference = DesktopAppearance::Preference;
    QList<Preference> told;
    EXPECT_EQ(desktop->appearance->preference(), Preference::Light);
    desktop->appearance->onChange([&] { told += desktop->appearance->preference(); });
    standin::changeAppearance(QStringLiteral("NSAppearanceNameDarkAqua"));
    standin::changeAppearance(QString());
    EXPECT_EQ(told, QList<Preference>({Preference::Dark, Preference::None}));
    desktop->appearance->onChange({});
    standin::changeAppearance(QStringLiteral("NSAppearanceNameAqua"));
    EXPECT_EQ(told.size(), 2);
}

TEST_F(DesktopTest, AppearanceThatIsWatchedAtTheEnd_IsNoLonger) {
    bool isTold = false;
    desktop->appearance->onChange([&] { isTold = true; });
    desktop.reset();
    standin::changeAppearance(QStringLiteral("NSAppearanceNameDarkAqua"));
    EXPECT_FALSE(isTold);
}

TEST_F(DesktopTest, Presses_AreKnownHereAndElsewhereInPixelsFromTheTop) {
    EXPECT_TRUE(desktop->pointerPresses->areKnown());
    QList<QPoint> places;
    desktop->pointerPresses->watch([&](QPoint place) { places += place; });
    calls();
    standin::press(100, 890, true);
    standin::press(100, 890, false);
    standin::press(1500, 300, true); // on the second screen, whose top is 500 points down
    EXPECT_EQ(places, QList<QPoint>({{200, 20}, {200, 20}, {1500, 600}}));
    EXPECT_EQ(calls(), QStringList()) << "events go on to whom they are for";
    desktop->pointerPresses->watch({});
    standin::press(1, 1, true);
    EXPECT_EQ(places.size(), 3);
}

TEST_F(DesktopTest, WatchThatEndsItself_TellsOnce) {
    int count = 0;
    desktop->pointerPresses->watch([&](QPoint) {
        desktop->pointerPresses->watch({});
        ++count;
    });
    standin::press(1, 1, false);
    standin::press(1, 1, true);
    EXPECT_EQ(count, 1);
}

TEST_F(DesktopTest, SessionWithoutADesktop_IsAProblem) {
    qunsetenv("QT_QPA_PLATFORM");
    EXPECT_FALSE(desktopProblem());
    world().hasSession = false;
    EXPECT_TRUE(desktopProblem());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    EXPECT_FALSE(desktopProblem());
    qunsetenv("QT_QPA_PLATFORM");
}

} // namespace

} // namespace brivandel
