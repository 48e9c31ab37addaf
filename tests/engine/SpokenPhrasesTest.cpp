#include "engine/SpokenPhrases.h"

#include "commands/VoiceCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel {
namespace {

using testing::Contains;
using testing::Not;

CustomCommand custom(const QStringList& triggers, bool isEnabled = true) {
    CustomCommand command;
    command.triggers = triggers;
    command.isEnabled = isEnabled;
    return command;
}

RecognitionVocabulary phrasesWith(const TriggerOverrides& overrides, const CustomCommandList& commands) {
    return spokenPhrases(QStringLiteral("hey logic"), true, overrides, commands);
}

TEST(SpokenPhrases, Defaults_HoldEveryTriggerAndSwitchOnce) {
    const auto vocabulary = phrasesWith({}, {});
    QStringList expected = {QStringLiteral("enable trigger word"), QStringLiteral("trigger word on"),
                            QStringLiteral("disable trigger word"), QStringLiteral("trigger word off")};
    for (const VoiceCommand command : allVoiceCommands) {
        expected += triggers(command);
    }
    EXPECT_EQ(vocabulary.phrases, expected);
    EXPECT_EQ(vocabulary.wakePhrase, QStringLiteral("hey logic"));
    EXPECT_TRUE(vocabulary.wakePhraseRequired);
    EXPECT_THAT(vocabulary.barPhrases, Contains(QStringLiteral("go to bar")));
}

TEST(SpokenPhrases, Overrides_ReplaceTheDefaults) {
    const auto vocabulary =
        phrasesWith({{QStringLiteral("undo"), {QStringLiteral("oops")}}, {QStringLiteral("redo"), {}}}, {});
    EXPECT_THAT(vocabulary.phrases, Contains(QStringLiteral("oops")));
    EXPECT_THAT(vocabulary.phrases, Not(Contains(QStringLiteral("undo"))));
    EXPECT_THAT(vocabulary.phrases, Not(Contains(QStringLiteral("redo"))));
}

TEST(SpokenPhrases, CustomCommands_AddTheirTriggersWhenEnabled) {
    const auto vocabulary =
        phrasesWith({}, {custom({QStringLiteral("Bounce It"), QString(), QStringLiteral("play")}),
                         custom({QStringLiteral("mixdown")}, false)});
    EXPECT_THAT(vocabulary.phrases, Contains(QStringLiteral("bounce it")));
    EXPECT_THAT(vocabulary.phrases, Not(Contains(QString())));
    EXPECT_THAT(vocabulary.phrases, Not(Contains(QStringLiteral("mixdown"))));
    EXPECT_EQ(vocabulary.phrases.count(QStringLiteral("play")), 1);
}

TEST(SpokenPhrases, WakePhrase_IsListenedForInLowerCase) {
    const auto vocabulary = spokenPhrases(QStringLiteral("Hey Studio"), false, {}, {});
    EXPECT_EQ(vocabulary.wakePhrase, QStringLiteral("hey studio"));
    EXPECT_FALSE(vocabulary.wakePhraseRequired);
}

} // namespace
} // namespace brivandel
