#include "platform/linux/desktop/FakeBusService.h"
#include "platform/linux/desktop/StatusItemHosts.h"
#include "platform/linux/desktop/X11Events.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace brivandel {

class StatusItemHostsTest : public testing::Test {
protected:
    void startPanel() {
        panel_.emplace(QStringLiteral("org.kde.StatusNotifierWatcher"),
                       QStringLiteral("/StatusNotifierWatcher"));
    }
    [[nodiscard]] std::unique_ptr<StatusItemHosts> hosts() {
        auto hosts = std::make_unique<StatusItemHosts>(std::make_shared<X11Events>());
        hosts->onChange([this] { ++changes_; });
        return hosts;
    }

    std::optional<FakeBusService> panel_;
    int changes_ = 0;
};

TEST_F(StatusItemHostsTest, PanelThatIsThere_IsKnownAtOnce) {
    startPanel();
    EXPECT_TRUE(hosts()->isThere());
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
