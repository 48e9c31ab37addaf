#pragma once

#include "commands/CustomCommand.h"
#include "commands/TriggerOverrides.h"

#include <QString>

namespace brivandel {

/// The settings that decide what a phrase means.
struct PhraseSettings {
    QString wakeWord;
    bool useWakeWord = true;
    CustomCommandList customCommands;
    TriggerOverrides triggerOverrides;

    bool operator==(const PhraseSettings&) const = default;
};

} // namespace brivandel
