#include "platform/linux/desktop/FakeBusService.h"
#include "platform/linux/desktop/PortalAppearance.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <gtest/gtest.h>

#include <optional>

namespace brivandel {

using Preference = DesktopAppearance::Preference;

class PortalAppearanceTest : public testing::Test {
protected:
    static constexpr auto path = "/org/freedesktop/portal/desktop";
    static constexpr uint noPreference = 0;
    static constexpr uint dark = 1;
    static constexpr uint light = 2;

    void answer(uint scheme) {
        // As the portal does: a value in a value.
        portal_.setAnswer(QStringLiteral("Read"),
                          {QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(scheme))))});
    }
    void start() {
        appearance_.emplace();
        appearance_->onChange([this] { ++changes_; });
    }
    static void announce(const QString& group, const QString& key, uint scheme) {
        auto signal = QDBusMessage::createSignal(QString::fromLatin1(path),
                                                 QStringLiteral("org.freedesktop.portal.Settings"),
                                                 QStringLiteral("SettingChanged"));
        signal << group << key << QVariant::fromValue(QDBusVariant(scheme));
        QDBusConnection(QStringLiteral("org.freedesktop.portal.Desktop")).send(signal);
    }
    static void announce(uint scheme) {
        announce(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"), scheme);
    }
    [[nodiscard]] bool becomes(Preference preference) {
        return processEventsUntil([&] { return appearance_->preference() == preference; });
    }

    FakeBusService portal_{QStringLiteral("org.freedesktop.portal.Desktop"), QString::fromLatin1(path)};
    std::optional<PortalAppearance> appearance_;
    int changes_ = 0;
};

TEST_F(PortalAppearanceTest, Started_AsksAndCountsTheAnswerAsAChange) {
    answer(dark);
    start();
    EXPECT_EQ(appearance_->preference(), Preference::None);
    EXPECT_TRUE(becomes(Preference::Dark));
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(portal_.calls().front().arguments(),
              (QVariantList{QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme")}));
}

TEST_F(PortalAppearanceTest, SettingThatChanges_IsFollowed) {
    answer(light);
    start();
    ASSERT_TRUE(becomes(Preference::Light));
    announce(dark);
    EXPECT_TRUE(becomes(Preference::Dark));
    announce(noPreference);
    EXPECT_TRUE(becomes(Preference::None));
    EXPECT_EQ(changes_, 3);
}

TEST_F(PortalAppearanceTest, OtherSettings_ChangeNothing) {
    answer(light);
    start();
    ASSERT_TRUE(becomes(Preference::Light));
    announce(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("contrast"), dark);
    announce(QStringLiteral("org.example"), QStringLiteral("color-scheme"), dark);
    announce(noPreference); // comes after them
    ASSERT_TRUE(becomes(Preference::None));
    EXPECT_EQ(changes_, 2);
}

TEST_F(PortalAppearanceTest, PortalThatNeverAnswers_HoldsUpNobody) {
    start();
    ASSERT_TRUE(portal_.waitForCalls(1));
    EXPECT_EQ(appearance_->preference(), Preference::None);
    EXPECT_EQ(changes_, 0);
}

} // namespace brivandel
