#pragma once

#include "engine/PhraseTrial.h"

#include <nlohmann/json.hpp>

namespace brivandel {

/// The members by which a decision is printed: kind, command, trigger, bar, thenPlay, script; those that do
/// not apply to its kind are absent.
[[nodiscard]] nlohmann::ordered_json decisionMembers(const Decision& decision);

/// What a phrase would do, as one JSON object.
[[nodiscard]] nlohmann::ordered_json outcomeJson(const PhraseOutcome& outcome);

} // namespace brivandel
