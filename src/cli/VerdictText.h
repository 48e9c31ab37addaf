#pragma once

#include "platform/SpeechRecognition.h"

#include <QString>

#include <nlohmann/json.hpp>

namespace brivandel {

/// Why an utterance was delivered or was not, for people and as members of a JSON object.
[[nodiscard]] QString verdictText(const UtteranceVerdict& verdict);
[[nodiscard]] nlohmann::ordered_json verdictMembers(const UtteranceVerdict& verdict);

} // namespace brivandel
