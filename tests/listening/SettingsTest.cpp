#include "listening/Settings.h"

#include "platform/scripted/MemoryDefaultsStore.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

/// What reads as a wake phrase or a device, or as a flag, when this object is stored there.
struct Reading {
    QVariant stored;
    std::optional<QString> text;
    std::optional<bool> flag;
};

void PrintTo(const Reading& reading, std::ostream* out) {
    *out << reading.stored.typeName() << ' ' << reading.stored.toString().toStdString();
}

class SettingsTest : public testing::TestWithParam<Reading> {
protected:
    MemoryDefaultsStore store_;
    Settings settings_{store_};
};

TEST_P(SettingsTest, StoredObject_ReadsAsOnThePlatform) {
    for (const QString& key : {QStringLiteral("wakeWord"), QStringLiteral("audioDevice"),
                               QStringLiteral("useWakeWord"), QStringLiteral("audioFeedback")}) {
        store_.set(key, GetParam().stored);
    }
    EXPECT_EQ(settings_.wakeWord(), GetParam().text.value_or(QStringLiteral("hey logic")));
    EXPECT_EQ(settings_.audioDevice(), GetParam().text);
    EXPECT_EQ(settings_.useWakeWord(), GetParam().flag);
    EXPECT_EQ(settings_.audioFeedback(), GetParam().flag);
}

const QVariant foreign = QVariant::fromValue(ForeignObject());

INSTANTIATE_TEST_SUITE_P(
    Objects, SettingsTest,
    testing::Values(Reading{QVariant(), std::nullopt, std::nullopt},
                    Reading{QStringLiteral("okay studio"), QStringLiteral("okay studio"), false},
                    Reading{QString(), QString(), false},
                    Reading{QStringLiteral("YES"), QStringLiteral("YES"), true},
                    Reading{QStringLiteral("no"), QStringLiteral("no"), false},
                    Reading{true, QStringLiteral("1"), true}, Reading{false, QStringLiteral("0"), false},
                    Reading{qlonglong{7}, QStringLiteral("7"), true},
                    Reading{qlonglong{0}, QStringLiteral("0"), false},
                    Reading{0.25, QStringLiteral("0.25"), true}, Reading{0.0, QStringLiteral("0"), false},
                    Reading{QByteArray("true"), std::nullopt, false}, Reading{foreign, std::nullopt, false}));

TEST_F(SettingsTest, OtherTypesUnderTheIdleKeys_ReadAsTheDefaults) {
    for (const QVariant& stored :
         {QVariant(), QVariant(QStringLiteral("5")), QVariant(5.0), QVariant(QByteArray("5")), foreign}) {
        store_.set(QStringLiteral("idleTimeoutMinutes"), stored);
        store_.set(QStringLiteral("autoDisableOnIdle"), stored);
        store_.set(QStringLiteral("idleReminderEnabled"), stored);
        EXPECT_EQ(settings_.idleTimeoutMinutes(), 30);
        EXPECT_TRUE(settings_.autoDisableOnIdle());
        EXPECT_TRUE(settings_.idleReminderEnabled());
    }
}

TEST_F(SettingsTest, OtherTypesUnderTheCollections_ReadAsNone) {
    for (const QVariant& stored : {QVariant(), QVariant(QStringLiteral("[]")), QVariant(true), foreign}) {
        store_.set(QStringLiteral("customCommands"), stored);
        store_.set(QStringLiteral("builtInTriggerOverrides"), stored);
        EXPECT_EQ(settings_.customCommands(), std::nullopt);
        EXPECT_EQ(settings_.triggerOverrides(), std::nullopt);
    }
}

} // namespace
} // namespace brivandel
