#include "AdapterTest.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacServices.h"

namespace brivandel {

namespace {

using SmallServicesTest = AdapterTest;

TEST_F(SmallServicesTest, Beeper_BeepsOnce) {
    makeMacBeeper()->beep();
    EXPECT_EQ(calls(), QStringList(QStringLiteral("beep")));
}

TEST_F(SmallServicesTest, Notification_IsDeliveredAtOnceWithTheDefaultSound) {
    makeMacNotifier()->deliver(
        {QStringLiteral("idle-1.5"), QStringLiteral("Brivandel"), QStringLiteral("Café 😀")});
    EXPECT_EQ(calls(), QStringList(QStringLiteral("notify idle-1.5|Brivandel|Café 😀|sound")));
}

TEST_F(SmallServicesTest, NotificationWhileTheProgramIsInFront_IsShownAndHeard) {
    world().isInFront = true;
    const auto notifier = makeMacNotifier();
    notifier->deliver({QStringLiteral("idle-1"), QStringLiteral("Brivandel"), QStringLiteral("Idle")});
    EXPECT_EQ(calls(), QStringList({QStringLiteral("notify idle-1|Brivandel|Idle|sound"),
                                    QStringLiteral("present 26")}))
        << "as a banner, in the list, with its sound";
}

TEST_F(SmallServicesTest, NotificationOutsideABundle_IsNotAskedFor) {
    world().bundleIdentifier = QString();
    makeMacNotifier()->deliver({});
    makeMacPermissions()->requestNotificationAuthorization();
    EXPECT_EQ(calls(), QStringList());
}

TEST_F(SmallServicesTest, LibraryFolder_IsTheUsers) {
    EXPECT_EQ(userLibraryFolder(), QStringLiteral("/Users/player/Library"));
    EXPECT_EQ(bundleIdentifier(), QStringLiteral("org.brivandel.Brivandel"));
}

TEST_F(SmallServicesTest, Key_IsNamedByTheLayoutWithoutModifiers) {
    world().keys = {{0, u"a"}, {1, u"é"}, {2, u"\U0001D11E"}, {3, u""}};
    const auto layout = makeMacKeyboardLayout();
    EXPECT_EQ(layout->characterForKeyCode(0), QStringLiteral("a"));
    EXPECT_EQ(layout->characterForKeyCode(1), QStringLiteral("é"));
    EXPECT_EQ(layout->characterForKeyCode(2), QStringLiteral("𝄞"));
    EXPECT_FALSE(layout->characterForKeyCode(3)) << "types nothing";
}

TEST_F(SmallServicesTest, KeyWithoutATranslation_HasNoName) {
    world().keys = {{0, u"a"}};
    const auto layout = makeMacKeyboardLayout();
    world().translationStatus = -25340;
    EXPECT_FALSE(layout->characterForKeyCode(0));
    world().translationStatus = 0;
    world().layoutHasData = false;
    EXPECT_FALSE(layout->characterForKeyCode(0));
    world().hasLayout = false;
    EXPECT_FALSE(layout->characterForKeyCode(0));
}

TEST_F(SmallServicesTest, NativeKey_IsItsVirtualKeyCode) {
    const auto layout = makeMacKeyboardLayout();
    EXPECT_EQ(layout->keyCodeForNativeKey({0, 0}), 0);
    EXPECT_EQ(layout->keyCodeForNativeKey({0, 127}), 127);
    EXPECT_FALSE(layout->keyCodeForNativeKey({0, 128}));
}

} // namespace

} // namespace brivandel
