#pragma once

#include "engine/TranscriptMatcher.h"

#include <QString>

#include <nlohmann/json.hpp>

namespace brivandel {

/// The members by which a decision is printed: kind, command, trigger, bar, thenPlay, script; those that do
/// not apply to its kind are absent.
[[nodiscard]] nlohmann::ordered_json decisionMembers(const Decision& decision);

/// The decision in words, as in: play (Start playback from current position), by "play"
[[nodiscard]] QString decisionText(const Decision& decision);

/// What would be pressed, one line; empty for the spoken switches.
[[nodiscard]] QString decisionKeys(const Decision& decision);

} // namespace brivandel
