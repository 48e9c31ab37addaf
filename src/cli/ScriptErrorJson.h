#pragma once

#include "platform/ScriptHost.h"

#include <nlohmann/json.hpp>

namespace brivandel {

/// A script's error dictionary as a JSON object with the same keys.
[[nodiscard]] nlohmann::ordered_json scriptErrorJson(const ScriptErrorDictionary& error);

} // namespace brivandel
