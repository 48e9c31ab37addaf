#include "commands/VoiceCommand.h"

#include "commands/KeystrokeScript.h"

#include <algorithm>

namespace brivandel {

namespace {

struct CatalogueEntry {
    CommandCategory category;
    QString description;
    QStringList triggers; // the first is the raw value
    QString action;       // the line that the keystroke script carries out
};

// Characters are typed, so they follow the keyboard layout as the workstation's letter commands do; the
// transport goes by key code, so it does not. Several commands share one key: to Logic Pro, play and stop are
// both the space bar. Virtual key codes: 36 Return, 41 semicolon of the ANSI layout, 49 space bar, 124 right
// arrow.
const std::array<CatalogueEntry, voiceCommandCount>& catalogue() {
    using enum CommandCategory;
    static const std::array<CatalogueEntry, voiceCommandCount> entries = {{
        {recording,
         QStringLiteral("Begin recording on selected track"),
         {QStringLiteral("start recording"), QStringLiteral("record"), QStringLiteral("recording")},
         QStringLiteral("keystroke \"r\"")},
        {recording,
         QStringLiteral("Stop current recording"),
         {QStringLiteral("stop recording")},
         keyCodeAction(49)},
        {transport,
         QStringLiteral("Start playback from current position"),
         {QStringLiteral("play")},
         keyCodeAction(49)},
        {transport, QStringLiteral("Stop playback/recording"), {QStringLiteral("stop")}, keyCodeAction(49)},
        {transport, QStringLiteral("Pause playback"), {QStringLiteral("pause")}, keyCodeAction(49)},
        {transport,
         QStringLiteral("Return to project start"),
         {QStringLiteral("go to start"), QStringLiteral("go to beginning"), QStringLiteral("rewind")},
         keyCodeAction(36)},
        {transport,
         QStringLiteral("Skip forward"),
         {QStringLiteral("fast forward"), QStringLiteral("skip ahead")},
         keyCodeAction(124)},
        {editing,
         QStringLiteral("Undo last recording (use immediately after recording)"),
         {QStringLiteral("delete last take"), QStringLiteral("delete take"), QStringLiteral("delete that")},
         QStringLiteral("keystroke \"z\" using {command down}")},
        {editing,
         QStringLiteral("Undo last action"),
         {QStringLiteral("undo")},
         QStringLiteral("keystroke \"z\" using {command down}")},
        {editing,
         QStringLiteral("Redo last undone action"),
         {QStringLiteral("redo")},
         QStringLiteral("keystroke \"z\" using {command down, shift down}")},
        {editing,
         QStringLiteral("Save current project"),
         {QStringLiteral("save project"), QStringLiteral("save")},
         QStringLiteral("keystroke \"s\" using {command down}")},
        {editing,
         QStringLiteral("Save project with new name"),
         {QStringLiteral("save as")},
         QStringLiteral("keystroke \"s\" using {command down, shift down}")},
        {looping,
         QStringLiteral("Turn on cycle mode"),
         {QStringLiteral("enable loop"), QStringLiteral("loop on")},
         QStringLiteral("keystroke \"c\"")},
        {looping,
         QStringLiteral("Turn off cycle mode"),
         {QStringLiteral("disable loop"), QStringLiteral("loop off")},
         QStringLiteral("keystroke \"c\"")},
        {looping,
         QStringLiteral("Create loop from selection"),
         {QStringLiteral("loop this section"), QStringLiteral("loop this")},
         QStringLiteral("keystroke \"c\"")},
        {recording,
         QStringLiteral("Enable count-in before recording"),
         {QStringLiteral("count me in"), QStringLiteral("count in")},
         keyCodeAction(41, {QStringLiteral("shift down")})},
        {transport,
         QStringLiteral("Play from beginning"),
         {QStringLiteral("play that back"), QStringLiteral("play it back"), QStringLiteral("playback")},
         keyCodeAction(49)},
        {transport, QStringLiteral("Stop playback"), {QStringLiteral("stop playback")}, keyCodeAction(49)},
        {metronome,
         QStringLiteral("Enable metronome"),
         {QStringLiteral("click on"), QStringLiteral("metronome on")},
         QStringLiteral("keystroke \"k\"")},
        {metronome,
         QStringLiteral("Disable metronome"),
         {QStringLiteral("click off"), QStringLiteral("metronome off")},
         QStringLiteral("keystroke \"k\"")},
    }};
    return entries;
}

const CatalogueEntry& entry(VoiceCommand command) {
    return catalogue().at(static_cast<std::size_t>(command));
}

} // namespace

const QString& rawValue(VoiceCommand command) {
    return entry(command).triggers.front();
}

std::optional<VoiceCommand> voiceCommand(QStringView rawValue) {
    const auto* found = std::ranges::find_if(allVoiceCommands, [rawValue](VoiceCommand command) {
        return brivandel::rawValue(command) == rawValue;
    });
    if (found == allVoiceCommands.end()) {
        return std::nullopt;
    }
    return *found;
}

CommandCategory category(VoiceCommand command) {
    return entry(command).category;
}

const QString& description(VoiceCommand command) {
    return entry(command).description;
}

const QStringList& triggers(VoiceCommand command) {
    return entry(command).triggers;
}

QString appleScript(VoiceCommand command) {
    return keystrokeScript(entry(command).action);
}

} // namespace brivandel
