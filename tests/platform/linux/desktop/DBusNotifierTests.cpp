#include "platform/linux/desktop/DBusNotifier.h"
#include "platform/linux/desktop/FakeBusService.h"

#include <QDBusArgument>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <cstdlib>

namespace brivandel {

class DBusNotifierTest : public testing::Test {
protected:
    FakeBusService service_{QStringLiteral("org.freedesktop.Notifications"),
                            QStringLiteral("/org/freedesktop/Notifications")};
    DBusNotifier notifier_;
};

TEST_F(DBusNotifierTest, Delivered_ComesWithTitleBodyAndSound) {
    notifier_.deliver({.identifier = QStringLiteral("idle-1"),
                       .title = QStringLiteral("Brivandel"),
                       .body = QStringLiteral("Voice control is still listening.")});
    ASSERT_TRUE(service_.waitForCalls(1));
    const QDBusMessage& call = service_.calls().front();
    EXPECT_EQ(call.interface(), QStringLiteral("org.freedesktop.Notifications"));
    EXPECT_EQ(call.member(), QStringLiteral("Notify"));
    EXPECT_EQ(call.signature(), QStringLiteral("susssasa{sv}i"));
    const QVariantList arguments = call.arguments();
    EXPECT_EQ(arguments[0].toString(), QStringLiteral("Brivandel"));
    EXPECT_EQ(arguments[1].toUInt(), 0U);
    EXPECT_EQ(arguments[3].toString(), QStringLiteral("Brivandel"));
    EXPECT_EQ(arguments[4].toString(), QStringLiteral("Voice control is still listening."));
    const auto hints = qdbus_cast<QVariantMap>(arguments[6]);
    EXPECT_EQ(hints.value(QStringLiteral("sound-name")).toString(), QStringLiteral("message-new-instant"));
    EXPECT_EQ(arguments[7].toInt(), -1);
}

TEST_F(DBusNotifierTest, MarkupInTheBody_IsShownAsItStands) {
    notifier_.deliver({.identifier = {}, .title = QStringLiteral("a < b"), .body = QStringLiteral("<b>&")});
    ASSERT_TRUE(service_.waitForCalls(1));
    EXPECT_EQ(service_.calls().front().arguments()[3].toString(), QStringLiteral("a < b"));
    EXPECT_EQ(service_.calls().front().arguments()[4].toString(), QStringLiteral("&lt;b&gt;&amp;"));
}

TEST_F(DBusNotifierTest, ServiceThatNeverAnswers_HoldsUpNobody) {
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 10; ++i) {
        notifier_.deliver({.identifier = {}, .title = QStringLiteral("t"), .body = QStringLiteral("b")});
    }
    EXPECT_LT(timer.elapsed(), 500);
    EXPECT_TRUE(service_.waitForCalls(10));
}

// In a process of its own, since the bus is looked for once a process.
TEST(DBusNotifierDeathTest, NoSessionBus_HoldsUpNobody) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
            QElapsedTimer timer;
            timer.start();
            DBusNotifier notifier;
            notifier.deliver({.identifier = {}, .title = QStringLiteral("t"), .body = QStringLiteral("b")});
            std::_Exit(timer.elapsed() < 500 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace brivandel
