#include "platform/linux/desktop/DesktopInquiry.h"
#include "platform/linux/desktop/FakeBusService.h"

#include <QAbstractEventDispatcher>
#include <QDBusVariant>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

/// On another thread, for this one's event loop answers.
DesktopInquiry inquire(std::chrono::milliseconds patience) {
    DesktopInquiry found;
    std::atomic<bool> isDone = false;
    QAbstractEventDispatcher* const events = QAbstractEventDispatcher::instance();
    std::thread asker([&] {
        found = inquireDesktop(patience);
        isDone = true;
        events->wakeUp();
    });
    EXPECT_TRUE(processEventsUntil([&] { return isDone.load(); }));
    asker.join();
    return found;
}

} // namespace

TEST(DesktopInquiry, NothingOnTheBus_FindsNothing) {
    const DesktopInquiry found = inquire(2s);
    EXPECT_EQ(found.busProblem, std::nullopt);
    EXPECT_EQ(found.notificationService, std::nullopt);
    EXPECT_FALSE(found.hasStatusItemHost);
}

TEST(DesktopInquiry, ServicesOnTheBus_AreNamed) {
    FakeBusService notifications(QStringLiteral("org.freedesktop.Notifications"),
                                 QStringLiteral("/org/freedesktop/Notifications"));
    notifications.setAnswer(
        QStringLiteral("GetServerInformation"),
        {QStringLiteral("Crier"), QStringLiteral("Town"), QStringLiteral("3.1"), QStringLiteral("1.2")});
    FakeBusService watcher(QStringLiteral("org.kde.StatusNotifierWatcher"),
                           QStringLiteral("/StatusNotifierWatcher"));
    watcher.setAnswer(QStringLiteral("Get"), {QVariant::fromValue(QDBusVariant(true))});
    const DesktopInquiry found = inquire(5s);
    EXPECT_EQ(found.notificationService, QStringLiteral("Crier 3.1"));
    EXPECT_TRUE(found.hasStatusItemHost);
}

TEST(DesktopInquiry, WatcherWithoutHost_IsNoHost) {
    FakeBusService watcher(QStringLiteral("org.kde.StatusNotifierWatcher"),
                           QStringLiteral("/StatusNotifierWatcher"));
    watcher.setAnswer(QStringLiteral("Get"), {QVariant::fromValue(QDBusVariant(false))});
    EXPECT_FALSE(inquire(5s).hasStatusItemHost);
}

TEST(DesktopInquiry, ServiceThatHangs_IsGivenUp) {
    const FakeBusService notifications(QStringLiteral("org.freedesktop.Notifications"),
                                       QStringLiteral("/org/freedesktop/Notifications"));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(inquire(50ms).notificationService, std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
}

} // namespace brivandel
