#include "commands/VoiceCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel {
namespace {

struct Row {
    VoiceCommand command;
    const char16_t* rawValue;
    CommandCategory category;
    const char16_t* description;
    std::vector<const char16_t*> triggers;
    const char16_t* script;
};

// Written out whole, so that a change of any text shows here.
const std::vector<Row>& catalogue() {
    using enum CommandCategory;
    static const std::vector<Row> rows = {
        {VoiceCommand::startRecording,
         u"start recording",
         recording,
         u"Begin recording on selected track",
         {u"start recording", u"record", u"recording"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"r\"\n    end tell\nend tell"},
        {VoiceCommand::stopRecording,
         u"stop recording",
         recording,
         u"Stop current recording",
         {u"stop recording"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 49\n    end tell\nend tell"},
        {VoiceCommand::play,
         u"play",
         transport,
         u"Start playback from current position",
         {u"play"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 49\n    end tell\nend tell"},
        {VoiceCommand::stop,
         u"stop",
         transport,
         u"Stop playback/recording",
         {u"stop"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 49\n    end tell\nend tell"},
        {VoiceCommand::pause,
         u"pause",
         transport,
         u"Pause playback",
         {u"pause"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 49\n    end tell\nend tell"},
        {VoiceCommand::rewind,
         u"go to start",
         transport,
         u"Return to project start",
         {u"go to start", u"go to beginning", u"rewind"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 36\n    end tell\nend tell"},
        {VoiceCommand::fastForward,
         u"fast forward",
         transport,
         u"Skip forward",
         {u"fast forward", u"skip ahead"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 124\n    end tell\nend tell"},
        {VoiceCommand::deleteTake,
         u"delete last take",
         editing,
         u"Undo last recording (use immediately after recording)",
         {u"delete last take", u"delete take", u"delete that"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"z\" using {command down}\n    end tell\nend tell"},
        {VoiceCommand::undo,
         u"undo",
         editing,
         u"Undo last action",
         {u"undo"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"z\" using {command down}\n    end tell\nend tell"},
        {VoiceCommand::redo,
         u"redo",
         editing,
         u"Redo last undone action",
         {u"redo"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"z\" using {command down, shift down}\n    end tell\nend tell"},
        {VoiceCommand::save,
         u"save project",
         editing,
         u"Save current project",
         {u"save project", u"save"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"s\" using {command down}\n    end tell\nend tell"},
        {VoiceCommand::saveAs,
         u"save as",
         editing,
         u"Save project with new name",
         {u"save as"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"s\" using {command down, shift down}\n    end tell\nend tell"},
        {VoiceCommand::enableLoop,
         u"enable loop",
         looping,
         u"Turn on cycle mode",
         {u"enable loop", u"loop on"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"c\"\n    end tell\nend tell"},
        {VoiceCommand::disableLoop,
         u"disable loop",
         looping,
         u"Turn off cycle mode",
         {u"disable loop", u"loop off"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"c\"\n    end tell\nend tell"},
        {VoiceCommand::loopThisSection,
         u"loop this section",
         looping,
         u"Create loop from selection",
         {u"loop this section", u"loop this"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"c\"\n    end tell\nend tell"},
        {VoiceCommand::countIn,
         u"count me in",
         recording,
         u"Enable count-in before recording",
         {u"count me in", u"count in"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 41 using {shift down}\n    end tell\nend tell"},
        {VoiceCommand::playback,
         u"play that back",
         transport,
         u"Play from beginning",
         {u"play that back", u"play it back", u"playback"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 49\n    end tell\nend tell"},
        {VoiceCommand::stopPlayback,
         u"stop playback",
         transport,
         u"Stop playback",
         {u"stop playback"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        key code 49\n    end tell\nend tell"},
        {VoiceCommand::clickOn,
         u"click on",
         metronome,
         u"Enable metronome",
         {u"click on", u"metronome on"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"k\"\n    end tell\nend tell"},
        {VoiceCommand::clickOff,
         u"click off",
         metronome,
         u"Disable metronome",
         {u"click off", u"metronome off"},
         u"tell application \"System Events\"\n    tell process \"Logic Pro\"\n        set frontmost to "
         u"true\n        keystroke \"k\"\n    end tell\nend tell"},
    };
    return rows;
}

TEST(VoiceCommand, Catalogue_IsInItsOrder) {
    ASSERT_EQ(catalogue().size(), allVoiceCommands.size());
    for (std::size_t index = 0; index < allVoiceCommands.size(); ++index) {
        EXPECT_EQ(allVoiceCommands[index], catalogue()[index].command);
    }
}

TEST(VoiceCommand, Properties_AreThoseOfTheCatalogue) {
    for (const Row& row : catalogue()) {
        const QString rawValue = QString::fromUtf16(row.rawValue);
        SCOPED_TRACE(rawValue.toStdString());
        EXPECT_EQ(brivandel::rawValue(row.command), rawValue);
        EXPECT_EQ(category(row.command), row.category);
        EXPECT_EQ(description(row.command), QString::fromUtf16(row.description));
        QStringList expectedTriggers;
        for (const char16_t* trigger : row.triggers) {
            expectedTriggers += QString::fromUtf16(trigger);
        }
        EXPECT_EQ(triggers(row.command), expectedTriggers);
        EXPECT_EQ(triggers(row.command).front(), rawValue);
    }
}

TEST(VoiceCommand, AppleScript_IsTheSameToTheByte) {
    for (const Row& row : catalogue()) {
        EXPECT_EQ(appleScript(row.command).toUtf8(), QString::fromUtf16(row.script).toUtf8());
    }
}

TEST(VoiceCommand, RawValue_MatchesExactly) {
    for (const VoiceCommand command : allVoiceCommands) {
        EXPECT_EQ(voiceCommand(rawValue(command)), command);
    }
    EXPECT_EQ(voiceCommand(u"play"), VoiceCommand::play);
    EXPECT_EQ(voiceCommand(u"Play"), std::nullopt);
    EXPECT_EQ(voiceCommand(u"rewind"), std::nullopt); // a trigger and the case's name, not the raw value
    EXPECT_EQ(voiceCommand(u"go to start"), VoiceCommand::rewind);
    EXPECT_EQ(voiceCommand(u"count me in"), VoiceCommand::countIn);
    EXPECT_EQ(voiceCommand(u""), std::nullopt);
}

} // namespace
} // namespace brivandel
