#pragma once

#include "platform/ScriptHost.h"
#include "platform/linux/applescript/Script.h"
#include "platform/linux/applescript/ScriptTime.h"
#include "platform/linux/applescript/ScriptTurns.h"
#include "platform/linux/applescript/StandIn.h"
#include "platform/linux/keys/KeySender.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <optional>

namespace brivandel::script {

/// What running scripts share.
struct ScriptSurroundings {
    KeySender& keys;
    ScriptTime& time;
    ScriptTurns& turns;
    /// Set when running scripts are to stop before their next statement.
    const std::atomic<bool>& stopping;
    /// Which program stands for "Logic Pro", and its keys; asked once a script.
    const StandInChoice& standIn;
    /// How long a script may take beside its own delays.
    std::chrono::milliseconds patience;
};

/// Runs a script to its end or its first error. Any thread; it blocks.
[[nodiscard]] std::optional<ScriptErrorDictionary> runScript(const Script& script,
                                                             const ScriptSurroundings& surroundings);

} // namespace brivandel::script
