#include "engine/TranscriptMatcher.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

// The decision in short, as in "play by play".
QString shortly(const Decision& decision) {
    struct Visitor {
        QString operator()(const TriggerWordOn& match) const {
            return QStringLiteral("on by ") + match.trigger;
        }
        QString operator()(const TriggerWordOff& match) const {
            return QStringLiteral("off by ") + match.trigger;
        }
        QString operator()(const BarNavigation& match) const { return barNavigationLabel(match); }
        QString operator()(const BuiltInMatch& match) const {
            return rawValue(match.command) + QStringLiteral(" by ") + match.trigger;
        }
        QString operator()(const CustomMatch& match) const {
            return QStringLiteral("own ") + match.command.name + QStringLiteral(" by ") + match.trigger;
        }
    };
    return std::visit(Visitor(), decision);
}

CustomCommand custom(const QString& name, const QStringList& triggers, bool isEnabled = true) {
    CustomCommand command;
    command.id = QUuid::createUuid();
    command.name = name;
    command.triggers = triggers;
    command.isEnabled = isEnabled;
    return command;
}

class TranscriptMatcherTest : public testing::Test {
protected:
    QString match(const QString& text) const {
        const auto decision = matcher_.match(text);
        return decision ? shortly(*decision) : QStringLiteral("nothing");
    }

    QStringList candidates(const QString& text) const {
        QStringList all;
        for (const Decision& decision : matcher_.candidates(text)) {
            all += shortly(decision);
        }
        return all;
    }

    void override(const QString& command, const QStringList& triggers) {
        matcher_.setTriggerOverrides({{command, triggers}});
    }

    TranscriptMatcher matcher_;
};

TEST_F(TranscriptMatcherTest, EveryDefaultTrigger_ReachesItsCommand) {
    for (const VoiceCommand command : allVoiceCommands) {
        for (const QString& trigger : triggers(command)) {
            EXPECT_EQ(match(trigger), rawValue(command) + QStringLiteral(" by ") + trigger);
        }
    }
}

TEST_F(TranscriptMatcherTest, LongerTrigger_WinsOverAllCommands) {
    EXPECT_EQ(match(QStringLiteral("stop recording")), QStringLiteral("stop recording by stop recording"));
    EXPECT_EQ(match(QStringLiteral("play that back")), QStringLiteral("play that back by play that back"));
    EXPECT_EQ(match(QStringLiteral("save as")), QStringLiteral("save as by save as"));
    EXPECT_EQ(match(QStringLiteral("stop and start recording")),
              QStringLiteral("start recording by start recording"));
}

TEST_F(TranscriptMatcherTest, EqualLengths_KeepTheOrderOfDeclaration) {
    // "play", "stop", "undo", "redo" and "save" have four characters each.
    EXPECT_EQ(match(QStringLiteral("save undo stop play")), QStringLiteral("play by play"));
    EXPECT_EQ(match(QStringLiteral("save redo undo")), QStringLiteral("undo by undo"));
    override(QStringLiteral("stop"), {QStringLiteral("bbbb"), QStringLiteral("aaaa")});
    EXPECT_EQ(match(QStringLiteral("aaaa bbbb")), QStringLiteral("stop by bbbb"));
}

TEST_F(TranscriptMatcherTest, Trigger_IsFoundInsideAWord) {
    EXPECT_EQ(match(QStringLiteral("display")), QStringLiteral("play by play"));
}

TEST_F(TranscriptMatcherTest, Case_Matters) {
    EXPECT_EQ(match(QStringLiteral("Play")), QStringLiteral("nothing"));
}

TEST_F(TranscriptMatcherTest, UnknownText_IsNothing) {
    EXPECT_EQ(match(QStringLiteral("what a lovely day")), QStringLiteral("nothing"));
    EXPECT_EQ(match(QString()), QStringLiteral("nothing"));
}

TEST_F(TranscriptMatcherTest, Override_ReplacesAllDefaults) {
    override(QStringLiteral("play"), {QStringLiteral("roll tape")});
    EXPECT_EQ(match(QStringLiteral("roll tape")), QStringLiteral("play by roll tape"));
    EXPECT_EQ(match(QStringLiteral("play")), QStringLiteral("nothing"));
}

TEST_F(TranscriptMatcherTest, EmptyOverride_SwitchesOneCommandOff) {
    override(QStringLiteral("play"), {});
    EXPECT_EQ(match(QStringLiteral("play")), QStringLiteral("nothing"));
    EXPECT_EQ(match(QStringLiteral("play that back")), QStringLiteral("play that back by play that back"));
}

TEST_F(TranscriptMatcherTest, OverrideOfNoCommand_IsPassedOver) {
    override(QStringLiteral("Play"), {QStringLiteral("zzz")});
    EXPECT_EQ(match(QStringLiteral("zzz")), QStringLiteral("nothing"));
    EXPECT_EQ(match(QStringLiteral("play")), QStringLiteral("play by play"));
}

TEST_F(TranscriptMatcherTest, EmptyTrigger_MatchesNothing) {
    override(QStringLiteral("play"), {QString()});
    matcher_.setCustomCommands({custom(QStringLiteral("A"), {QString()})});
    EXPECT_EQ(match(QStringLiteral("anything")), QStringLiteral("nothing"));
    EXPECT_EQ(match(QString()), QStringLiteral("nothing"));
}

TEST_F(TranscriptMatcherTest, Length_IsCountedAsAPersonWould) {
    // Four accented letters, eight code units, are shorter than five plain ones.
    const QString accented = QStringLiteral("e\u0301e\u0301e\u0301e\u0301");
    matcher_.setTriggerOverrides(
        {{QStringLiteral("play"), {accented}}, {QStringLiteral("stop"), {QStringLiteral("fives")}}});
    EXPECT_EQ(match(accented + QStringLiteral("fives")), QStringLiteral("stop by fives"));

    // One guitar beside a family that is one character although it has eleven code units.
    const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466");
    matcher_.setTriggerOverrides(
        {{QStringLiteral("play"), {family}}, {QStringLiteral("stop"), {QStringLiteral("ab")}}});
    EXPECT_EQ(match(family + QStringLiteral("ab")), QStringLiteral("stop by ab"));
}

TEST_F(TranscriptMatcherTest, TriggerWordSwitches_BeatEverything) {
    EXPECT_EQ(match(QStringLiteral("trigger word on")), QStringLiteral("on by trigger word on"));
    EXPECT_EQ(match(QStringLiteral("please enable trigger word")),
              QStringLiteral("on by enable trigger word"));
    EXPECT_EQ(match(QStringLiteral("trigger word off")), QStringLiteral("off by trigger word off"));
    EXPECT_EQ(match(QStringLiteral("disable trigger word")), QStringLiteral("off by disable trigger word"));
    EXPECT_EQ(match(QStringLiteral("play bar 5 and trigger word off")),
              QStringLiteral("off by trigger word off"));
    EXPECT_EQ(match(QStringLiteral("trigger word off trigger word on")),
              QStringLiteral("on by trigger word on"));
}

TEST_F(TranscriptMatcherTest, BarNumber_BeatsEveryCommand) {
    EXPECT_EQ(match(QStringLiteral("stop recording at bar 5")), QStringLiteral("Go to bar 5"));
    EXPECT_EQ(match(QStringLiteral("go to bar twenty one")), QStringLiteral("Go to bar 21"));
}

TEST_F(TranscriptMatcherTest, PlayFromOrAt_PlaysFromTheBar) {
    EXPECT_EQ(match(QStringLiteral("play from bar 5")), QStringLiteral("Play from bar 5"));
    EXPECT_EQ(match(QStringLiteral("play at bar 5")), QStringLiteral("Play from bar 5"));
    EXPECT_EQ(match(QStringLiteral("play bar 5")), QStringLiteral("Go to bar 5"));
}

TEST_F(TranscriptMatcherTest, BarThatIsNoNumber_LeavesTheCommand) {
    EXPECT_EQ(match(QStringLiteral("play from bar five please")), QStringLiteral("play by play"));
}

TEST_F(TranscriptMatcherTest, CustomCommand_IsFoundWhenNoBuiltInIs) {
    matcher_.setCustomCommands({custom(QStringLiteral("Bounce"), {QStringLiteral("bounce")})});
    EXPECT_EQ(match(QStringLiteral("bounce the song")), QStringLiteral("own Bounce by bounce"));
    EXPECT_EQ(match(QStringLiteral("bounce and stop")), QStringLiteral("stop by stop"));
}

TEST_F(TranscriptMatcherTest, CustomTriggerThatHoldsABuiltIn_IsNeverReached) {
    matcher_.setCustomCommands({custom(QStringLiteral("Guitar"), {QStringLiteral("play guitar")})});
    EXPECT_EQ(match(QStringLiteral("play guitar")), QStringLiteral("play by play"));
    EXPECT_EQ(match(QStringLiteral("guitar play")), QStringLiteral("play by play"));
}

TEST_F(TranscriptMatcherTest, CustomCommands_AreTakenInListOrder) {
    matcher_.setCustomCommands({custom(QStringLiteral("Short"), {QStringLiteral("mix")}),
                                custom(QStringLiteral("Long"), {QStringLiteral("mixdown")})});
    EXPECT_EQ(match(QStringLiteral("mixdown")), QStringLiteral("own Short by mix"));
}

TEST_F(TranscriptMatcherTest, TriggersOfOneCustomCommand_AreTakenLongestFirst) {
    matcher_.setCustomCommands(
        {custom(QStringLiteral("Mix"), {QStringLiteral("mix"), QStringLiteral("mixdown")})});
    EXPECT_EQ(match(QStringLiteral("mixdown")), QStringLiteral("own Mix by mixdown"));
}

TEST_F(TranscriptMatcherTest, DisabledCustomCommand_IsPassedOver) {
    matcher_.setCustomCommands({custom(QStringLiteral("A"), {QStringLiteral("bounce")}, false),
                                custom(QStringLiteral("B"), {QStringLiteral("bounce")})});
    EXPECT_EQ(match(QStringLiteral("bounce")), QStringLiteral("own B by bounce"));
}

TEST_F(TranscriptMatcherTest, Candidates_HoldTheWinnerAndWhatItHides) {
    matcher_.setCustomCommands({custom(QStringLiteral("Mine"), {QStringLiteral("that")})});
    EXPECT_EQ(candidates(QStringLiteral("play that back from bar 5")),
              QStringList({QStringLiteral("Go to bar 5"), QStringLiteral("play that back by play that back"),
                           QStringLiteral("play by play"), QStringLiteral("own Mine by that")}));
    EXPECT_EQ(candidates(QStringLiteral("start recording")),
              QStringList(QStringLiteral("start recording by start recording")));
    EXPECT_TRUE(candidates(QStringLiteral("hello")).isEmpty());
}

} // namespace
} // namespace brivandel
