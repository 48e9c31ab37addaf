#include "engine/PhraseAdvice.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

CustomCommand command(const QString& name, const QStringList& triggers) {
    return {.id = QUuid::createUuid(), .name = name, .triggers = triggers, .capturedKey = {}};
}

const PhraseOwner newCommand = QUuid();

class PhraseAdviceTest : public testing::Test {
protected:
    QStringList texts(const QString& phrase, const PhraseOwner& owner = newCommand) const {
        const PhraseAdviser adviser(settings, expected);
        QStringList texts;
        for (const PhraseAdvice& advice : adviser.advice(phrase, owner, expected.value(phrase))) {
            texts += adviceText(advice);
        }
        return texts;
    }
    void expectSound(const QString& phrase, const QString& phones, bool isInDictionary = true) {
        expected.insert(phrase, {{phrase, phones, isInDictionary}});
    }

    PhraseSettings settings{QStringLiteral("hey logic"), true, {}, {}};
    ExpectedPhrases expected;
};

TEST_F(PhraseAdviceTest, APhraseOfItsOwn_NeedsNoAdvice) {
    EXPECT_EQ(texts(QStringLiteral("mute drums")), QStringList());
    EXPECT_EQ(texts(QString()), QStringList());
}

TEST_F(PhraseAdviceTest, EveryBuiltInPhrase_NeedsNoAdviceButToWait) {
    for (const VoiceCommand builtIn : allVoiceCommands) {
        for (const QString& trigger : triggers(builtIn)) {
            for (const QString& text : texts(trigger, builtIn)) {
                EXPECT_THAT(text.toStdString(), testing::HasSubstr("waits a moment"))
                    << trigger.toStdString();
            }
        }
    }
}

TEST_F(PhraseAdviceTest, ABuiltInTriggerInside_TakesAnOwnCommandsPhrase) {
    EXPECT_EQ(texts(QStringLiteral("display mixer")),
              QStringList(QStringLiteral("Holds “play”, and is always heard as that.")));
    EXPECT_EQ(texts(QStringLiteral("record the drums")),
              QStringList(QStringLiteral("Holds “record”, and is always heard as “start recording”.")));
}

TEST_F(PhraseAdviceTest, ABuiltInTriggerInside_IsNoMatterForALongerBuiltInPhrase) {
    EXPECT_EQ(texts(QStringLiteral("play from the top"), VoiceCommand::playback), QStringList());
}

TEST_F(PhraseAdviceTest, TheSamePhraseForTwoBuiltInCommands_BelongsToTheOneDeclaredFirst) {
    EXPECT_EQ(texts(QStringLiteral("undo"), VoiceCommand::redo),
              QStringList(QStringLiteral("Holds “undo”, and is always heard as that.")));
    EXPECT_EQ(texts(QStringLiteral("redo"), VoiceCommand::undo),
              QStringList(QStringLiteral("Because of it, “redo” of “redo” is never heard.")));
}

TEST_F(PhraseAdviceTest, ReplacedTriggers_CountInsteadOfTheDefaults) {
    settings.triggerOverrides = {{QStringLiteral("play"), {QStringLiteral("roll")}}};
    EXPECT_EQ(texts(QStringLiteral("display mixer")), QStringList());
    EXPECT_EQ(texts(QStringLiteral("drum roll")),
              QStringList(QStringLiteral("Holds “roll”, and is always heard as “play”.")));
}

TEST_F(PhraseAdviceTest, TheSpokenSwitchesAndBarNumbers_TakeAPhrase) {
    EXPECT_EQ(texts(QStringLiteral("turn the trigger word off")),
              QStringList(QStringLiteral("Holds “trigger word off”, which switches the trigger word off.")));
    EXPECT_EQ(texts(QStringLiteral("go to bar five")),
              QStringList(QStringLiteral("Holds a bar's number, and is always heard as “Go to bar 5”.")));
}

TEST_F(PhraseAdviceTest, AnEarlierOwnCommand_TakesThePhrase) {
    settings.customCommands = {command(QStringLiteral("Mute"), {QStringLiteral("mute")}),
                               command(QStringLiteral("Mute Drums"), {QStringLiteral("mute drums")})};
    const QStringList taken(QStringLiteral("Holds “mute”, and is always heard as “Mute”."));
    EXPECT_EQ(texts(QStringLiteral("mute drums"), settings.customCommands[1].id), taken);
    EXPECT_EQ(texts(QStringLiteral("mute bass")), taken);
    EXPECT_EQ(texts(QStringLiteral("mute"), settings.customCommands[0].id),
              (QStringList{QStringLiteral("Because of it, “mute drums” of “Mute Drums” is never heard."),
                           QStringLiteral("“mute drums” begins the same way, so this waits a moment for the "
                                          "rest.")}));
}

TEST_F(PhraseAdviceTest, ALaterOwnCommand_TakesNothing) {
    settings.customCommands = {command(QStringLiteral("Mute Drums"), {QStringLiteral("mute drums")}),
                               command(QStringLiteral("Mute"), {QStringLiteral("mute")})};
    EXPECT_EQ(texts(QStringLiteral("mute drums"), settings.customCommands[0].id), QStringList());
}

TEST_F(PhraseAdviceTest, ADisabledCommand_TakesNothing) {
    settings.customCommands = {command(QStringLiteral("Mute"), {QStringLiteral("mute")})};
    settings.customCommands[0].isEnabled = false;
    EXPECT_EQ(texts(QStringLiteral("mute bass")), QStringList());
}

TEST_F(PhraseAdviceTest, ABuiltInPhrase_HidesOwnCommandsThatHoldIt) {
    settings.customCommands = {command(QStringLiteral("Solo"), {QStringLiteral("solo guitar")})};
    EXPECT_EQ(texts(QStringLiteral("guitar"), VoiceCommand::play),
              QStringList(QStringLiteral("Because of it, “solo guitar” of “Solo” is never heard.")));
}

TEST_F(PhraseAdviceTest, WhatIsHiddenAlready_IsNotBlamedOnThePhrase) {
    settings.customCommands = {command(QStringLiteral("Show"), {QStringLiteral("display mixer")})};
    EXPECT_EQ(texts(QStringLiteral("mixer"), VoiceCommand::save), QStringList());
}

TEST_F(PhraseAdviceTest, TheWakePhraseInside_CutsThePhrase) {
    EXPECT_EQ(texts(QStringLiteral("say hey logic twice")),
              QStringList(QStringLiteral("Holds the wake phrase “hey logic”: only what follows it counts.")));
    settings.useWakeWord = false;
    EXPECT_EQ(texts(QStringLiteral("say hey logic twice")), QStringList());
}

TEST_F(PhraseAdviceTest, TheBeginningOfALongerPhrase_WaitsForIt) {
    EXPECT_EQ(texts(QStringLiteral("delete"), VoiceCommand::undo),
              QStringList(QStringLiteral(
                  "“delete last take” begins the same way, so this waits a moment for the rest.")));
    EXPECT_EQ(texts(QStringLiteral("go to")),
              QStringList(
                  QStringLiteral("“go to start” begins the same way, so this waits a moment for the rest.")));
}

TEST_F(PhraseAdviceTest, TheBeginningOfAWord_IsNoBeginning) {
    EXPECT_EQ(texts(QStringLiteral("del"), VoiceCommand::undo), QStringList());
}

TEST_F(PhraseAdviceTest, AWordOfNoDictionary_IsShownAsItWillBePronounced) {
    expectSound(QStringLiteral("quantize"), QStringLiteral("K W AA N T AY Z"), false);
    EXPECT_EQ(texts(QStringLiteral("quantize")),
              QStringList(QStringLiteral("“quantize” is in no dictionary; listened for as “kwahn-teyez”.")));
}

TEST_F(PhraseAdviceTest, AWordWithoutPronunciation_CannotBeListenedFor) {
    expectSound(QStringLiteral("стоп"), QString(), false);
    EXPECT_EQ(texts(QStringLiteral("стоп")),
              QStringList(
                  QStringLiteral("Cannot be listened for: “стоп” is no word that English could pronounce.")));
}

TEST_F(PhraseAdviceTest, APhraseThatSoundsLikeAnothers_MayBeTakenForIt) {
    expectSound(QStringLiteral("play"), QStringLiteral("P L EY"));
    expectSound(QStringLiteral("stop"), QStringLiteral("S T AA P"));
    expectSound(QStringLiteral("pray"), QStringLiteral("P R EY"));
    EXPECT_EQ(texts(QStringLiteral("pray")),
              QStringList(
                  QStringLiteral("Sounds very much like “play” of “play”: one may be taken for the other.")));
    EXPECT_EQ(texts(QStringLiteral("pray"), VoiceCommand::play), QStringList());
}

TEST_F(PhraseAdviceTest, OnlyWhatKeepsACommandFromBeingHeard_IsSerious) {
    EXPECT_TRUE(isSerious(HeardAsAnother{TriggerWordOn{}}));
    EXPECT_TRUE(isSerious(HoldsWakePhrase{}));
    EXPECT_TRUE(isSerious(HidesAnother{}));
    EXPECT_TRUE(isSerious(CannotBeListenedFor{}));
    EXPECT_FALSE(isSerious(BeginsLongerPhrase{}));
    EXPECT_FALSE(isSerious(NotInDictionary{}));
    EXPECT_FALSE(isSerious(SoundsLikeAnother{}));
}

} // namespace
} // namespace brivandel
