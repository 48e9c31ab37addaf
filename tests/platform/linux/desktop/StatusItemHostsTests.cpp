#include "platform/linux/desktop/FakeBusService.h"
#include "platform/linux/desktop/StatusItemHosts.h"
#include "platform/linux/desktop/X11Events.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace brivandel {

class StatusItemHostsTest : public testing::Test {
protected:
    void startPanel() { startWatcher(true); }
    void startWatcher(bool hasPanel) {
        panel_.emplace(watcher(), QStringLiteral("/StatusNotifierWatcher"));
        setHasPanel(hasPanel);
    }
    void setHasPanel(bool hasPanel) {
        panel_->setAnswer(QStringLiteral("Get"), {QVariant::fromValue(QDBusVariant(hasPanel))});
    }
    static void announcePanel() {
        QDBusConnection(watcher()).send(
            QDBusMessage::createSignal(QStringLiteral("/StatusNotifierWatcher"), watcher(),
                                       QStringLiteral("StatusNotifierHostRegistered")));
    }
    static QString watcher() { return QStringLiteral("org.kde.StatusNotifierWatcher"); }
    [[nodiscard]] std::unique_ptr<StatusItemHosts> hosts() {
        auto hosts = std::make_unique<StatusItemHosts>(std::make_shared<X11Events>());
        hosts->onChange([this] { ++changes_; });
        return hosts;
    }

    std::optional<FakeBusService> panel_;
    int changes_ = 0;
};

TEST_F(StatusItemHostsTest, PanelThatIsThere_IsToldOnceItHasAnswered) {
    startPanel();
    const auto watched = hosts();
    EXPECT_TRUE(processEventsUntil([&] { return watched->isThere(); }));
    EXPECT_EQ(changes_, 1);
}

TEST_F(StatusItemHostsTest, WatcherWithoutAPanel_IsNoPlaceForAnItemUntilOneComes) {
    startWatcher(false);
    const auto watched = hosts();
    ASSERT_TRUE(panel_->waitForCalls(1));
    EXPECT_FALSE(watched->isThere());
    setHasPanel(true);
    announcePanel();
    EXPECT_TRUE(processEventsUntil([&] { return watched->isThere(); }));
}

TEST_F(StatusItemHostsTest, PanelThatComesAndGoes_IsTold) {
    const auto watched = hosts();
    EXPECT_FALSE(watched->isThere());
    startPanel();
    EXPECT_TRUE(processEventsUntil([&] { return watched->isThere(); }));
    EXPECT_EQ(changes_, 1);
    panel_.reset();
    EXPECT_TRUE(processEventsUntil([&] { return !watched->isThere(); }));
    EXPECT_EQ(changes_, 2);
}

} // namespace brivandel
