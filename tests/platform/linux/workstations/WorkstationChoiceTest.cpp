#include "platform/linux/workstations/WorkstationChoice.h"

#include <QHash>

#include <gtest/gtest.h>

#include <optional>

namespace brivandel {
namespace {

WorkstationProfile profile(const QString& name, const QStringList& processes) {
    return {name, processes, {}, std::make_shared<const script::KeyTable>()};
}

class WorkstationChoiceTest : public testing::Test {
protected:
    std::variant<StandIn, QString> choose(const QString& named) {
        return WorkstationChoice(TargetName::fromSetting(named), known_, QStringLiteral("/settings/target"))
            .choose([this](const TargetName& name) -> std::optional<KeyTarget> {
                if (name.by != TargetName::By::Process || !running_.contains(name.text)) {
                    return std::nullopt;
                }
                const QString& program = aliases_.value(name.text, name.text);
                return KeyTarget{static_cast<std::uint32_t>(running_.indexOf(program))};
            });
    }
    StandIn chosen(const QString& named = {}) {
        auto choice = choose(named);
        if (const auto* const problem = std::get_if<QString>(&choice)) {
            ADD_FAILURE() << qPrintable(*problem);
            return {};
        }
        return std::get<StandIn>(std::move(choice));
    }

    QStringList running_;
    /// Names under which a program of another name is found, too.
    QHash<QString, QString> aliases_;
    KnownWorkstations known_{
        {{profile(QStringLiteral("Alpha"), {QStringLiteral("alpha"), QStringLiteral("alpha2")}), {}},
         {profile(QStringLiteral("Beta"), {QStringLiteral("beta")}), {}}},
        {}};
};

TEST_F(WorkstationChoiceTest, NobodyNamedAndOneRuns_IsThatOneWithItsKeys) {
    running_ = {QStringLiteral("alpha2")};
    EXPECT_EQ(chosen().target, TargetName{QStringLiteral("alpha2")});
    EXPECT_EQ(chosen().name, QStringLiteral("Alpha"));
    EXPECT_EQ(chosen().keys, known_.all[0].profile.keys);
}

TEST_F(WorkstationChoiceTest, NobodyNamedAndNoneRuns_IsLogicPro) {
    EXPECT_EQ(chosen().target, TargetName());
    EXPECT_EQ(chosen().keys, nullptr);
}

TEST_F(WorkstationChoiceTest, NobodyNamedAndLogicProRuns_IsSentTheScriptsOwnKeys) {
    running_ = {QStringLiteral("Logic Pro")};
    EXPECT_EQ(chosen().target, TargetName{QStringLiteral("Logic Pro")});
    EXPECT_EQ(chosen().keys, nullptr);
}

TEST_F(WorkstationChoiceTest, NobodyNamedAndTwoRun_IsAnErrorThatNamesBoth) {
    running_ = {QStringLiteral("alpha"), QStringLiteral("beta")};
    const auto choice = choose({});
    ASSERT_TRUE(std::holds_alternative<QString>(choice));
    EXPECT_EQ(
        std::get<QString>(choice),
        QStringLiteral("Alpha and Beta are running, and none is chosen: end all but one, or name one in "
                       "/settings/target, which is read when Brivandel starts."));
}

TEST_F(WorkstationChoiceTest, TwoProfilesFindTheSameProgram_IsOneWorkstationAndTheFirstGoes) {
    running_ = {QStringLiteral("alpha"), QStringLiteral("beta")};
    aliases_ = {{QStringLiteral("beta"), QStringLiteral("alpha")}};
    EXPECT_EQ(chosen().target, TargetName{QStringLiteral("alpha")});
    EXPECT_EQ(chosen().keys, known_.all[0].profile.keys);
}

TEST_F(WorkstationChoiceTest, TwoRunAndOneIsNamed_IsThatOne) {
    running_ = {QStringLiteral("alpha"), QStringLiteral("beta")};
    EXPECT_EQ(chosen(QStringLiteral("Beta")).target, TargetName{QStringLiteral("beta")});
    EXPECT_EQ(chosen(QStringLiteral("BETA")).keys, known_.all[1].profile.keys);
}

TEST_F(WorkstationChoiceTest, NamedByItsProcess_IsLookedForUnderThatName) {
    running_ = {QStringLiteral("alpha"), QStringLiteral("alpha2")};
    EXPECT_EQ(chosen(QStringLiteral("alpha2")).target, TargetName{QStringLiteral("alpha2")});
    EXPECT_EQ(chosen(QStringLiteral("alpha2")).keys, known_.all[0].profile.keys);
}

TEST_F(WorkstationChoiceTest, NamedAndUnknown_IsSentTheScriptsOwnKeys) {
    running_ = {QStringLiteral("alpha")};
    EXPECT_EQ(chosen(QStringLiteral("gamma")).target, TargetName{QStringLiteral("gamma")});
    EXPECT_EQ(chosen(QStringLiteral("gamma")).keys, nullptr);
}

TEST_F(WorkstationChoiceTest, NamedByATitle_IsSentTheScriptsOwnKeys) {
    EXPECT_EQ(chosen(QStringLiteral("title:alpha")).target,
              (TargetName{QStringLiteral("alpha"), TargetName::By::WindowTitle}));
    EXPECT_EQ(chosen(QStringLiteral("title:alpha")).keys, nullptr);
}

} // namespace
} // namespace brivandel
