#pragma once

#include "commands/VoiceCommand.h"

#include <QList>
#include <QUuid>

#include <chrono>

namespace brivandel {

/// One entry of the history: a built-in command that was carried out.
struct CommandExecution {
    QUuid id;
    VoiceCommand command{};
    std::chrono::system_clock::time_point timestamp; ///< when its script had ended
    bool success = true;                             ///< failures are not recorded, so it is always true

    bool operator==(const CommandExecution&) const = default;
};

/// Newest first.
using CommandHistory = QList<CommandExecution>;

/// How many executions are kept.
inline constexpr qsizetype commandHistoryLimit = 50;

} // namespace brivandel
