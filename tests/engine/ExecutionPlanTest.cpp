#include "engine/ExecutionPlan.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(ExecutionPlan, BuiltIn_HasItsTexts) {
    const ExecutionPlan plan = executionPlan(VoiceCommand::play);
    EXPECT_EQ(plan.label, QStringLiteral("play"));
    EXPECT_EQ(plan.detail, QStringLiteral("Start playback from current position"));
    EXPECT_EQ(plan.script, appleScript(VoiceCommand::play));
    EXPECT_EQ(plan.linesBefore,
              QStringList({QStringLiteral("Executing command: play"),
                           QStringLiteral("AppleScript: ") + appleScript(VoiceCommand::play)}));
    EXPECT_EQ(plan.failurePrefix, QStringLiteral("AppleScript error: "));
    EXPECT_EQ(plan.successLine, QStringLiteral("Command succeeded: play"));
    EXPECT_EQ(plan.recordAs, VoiceCommand::play);
}

TEST(ExecutionPlan, Custom_RunsTheStoredScript) {
    CustomCommand command;
    command.name = QStringLiteral("Bounce");
    command.capturedKey.appleScript = QStringLiteral("as captured");
    const ExecutionPlan plan = executionPlan(command);
    EXPECT_EQ(plan.label, QStringLiteral("Bounce"));
    EXPECT_EQ(plan.detail, QStringLiteral("Bounce"));
    EXPECT_EQ(plan.script, QStringLiteral("as captured"));
    EXPECT_EQ(plan.linesBefore, QStringList({QStringLiteral("Executing custom command: Bounce"),
                                             QStringLiteral("AppleScript: as captured")}));
    EXPECT_EQ(plan.failurePrefix, QStringLiteral("Custom command AppleScript error: "));
    EXPECT_EQ(plan.successLine, QStringLiteral("Custom command succeeded: Bounce"));
    EXPECT_EQ(plan.recordAs, std::nullopt);
}

TEST(ExecutionPlan, Bar_UsesItsLabelThroughout) {
    const BarNavigation navigation{7, true};
    const ExecutionPlan plan = executionPlan(navigation);
    EXPECT_EQ(plan.label, QStringLiteral("Play from bar 7"));
    EXPECT_EQ(plan.detail, QStringLiteral("Play from bar 7"));
    EXPECT_EQ(plan.script, barNavigationScript(navigation));
    EXPECT_EQ(plan.linesBefore, QStringList(QStringLiteral("Bar navigation script: ") + plan.script));
    EXPECT_EQ(plan.failurePrefix, QStringLiteral("Bar navigation error: "));
    EXPECT_EQ(plan.successLine, QStringLiteral("Bar navigation succeeded: Play from bar 7"));
    EXPECT_EQ(plan.recordAs, std::nullopt);
}

} // namespace
} // namespace brivandel
