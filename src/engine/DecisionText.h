#pragma once

#include "engine/TranscriptMatcher.h"

#include <QString>

namespace brivandel {

/// The decision in words, as in: play (Start playback from current position), by "play"
[[nodiscard]] QString decisionText(const Decision& decision);

/// The script that would be run; empty for the spoken switches.
[[nodiscard]] QString decisionScript(const Decision& decision);

/// What would be pressed, one line; empty for the spoken switches.
[[nodiscard]] QString decisionKeys(const Decision& decision);

} // namespace brivandel
