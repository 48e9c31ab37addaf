#pragma once

#include "commands/CustomCommand.h"
#include "commands/TriggerOverrides.h"
#include "engine/PhraseSettings.h"

#include <QString>
#include <QVariantMap>

#include <iosfwd>
#include <optional>

namespace brivandel {

/// What the user has set, as far as subcommands ask for it. Nothing is written back.
struct UserSettings {
    QString wakeWord;
    bool useWakeWord = true;
    std::optional<QString> audioDevice;
    CustomCommandList customCommands;
    TriggerOverrides triggerOverrides;

    [[nodiscard]] PhraseSettings phrases() const {
        return {wakeWord, useWakeWord, customCommands, triggerOverrides};
    }
};

/// The settings of the user who runs the program. What is wrong with their file is said on err.
[[nodiscard]] UserSettings readUserSettings(std::ostream& err);

/// The same settings as stored objects, for a platform that must not change the user's own.
[[nodiscard]] QVariantMap readUserDefaults(std::ostream& err);

} // namespace brivandel
