#pragma once

#include "commands/CommandCategory.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>

namespace brivandel {

/// The commands that everybody has, in the order of the catalogue.
enum class VoiceCommand : std::uint8_t {
    startRecording,
    stopRecording,
    play,
    stop,
    pause,
    rewind,
    fastForward,
    deleteTake,
    undo,
    redo,
    save,
    saveAs,
    enableLoop,
    disableLoop,
    loopThisSection,
    countIn,
    playback,
    stopPlayback,
    clickOn,
    clickOff,
};

inline constexpr std::size_t voiceCommandCount = 20;

inline constexpr std::array<VoiceCommand, voiceCommandCount> allVoiceCommands = [] {
    std::array<VoiceCommand, voiceCommandCount> all{};
    for (std::size_t index = 0; index != all.size(); ++index) {
        all[index] = static_cast<VoiceCommand>(index);
    }
    return all;
}();

/// The canonical phrase, as in "start recording". It is also the command's identity: in the history, in
/// lists, and as the key of the user's own triggers.
[[nodiscard]] const QString& rawValue(VoiceCommand command);
/// The command of exactly this canonical phrase, if there is one.
[[nodiscard]] std::optional<VoiceCommand> voiceCommand(QStringView rawValue);

[[nodiscard]] CommandCategory category(VoiceCommand command);
/// One line for lists.
[[nodiscard]] const QString& description(VoiceCommand command);
/// The default trigger phrases; the first is the canonical phrase.
[[nodiscard]] const QStringList& triggers(VoiceCommand command);
/// The complete AppleScript that carries the command out.
[[nodiscard]] QString appleScript(VoiceCommand command);

} // namespace brivandel
