#pragma once

#include "engine/PhraseSettings.h"
#include "listening/VoiceController.h"

namespace brivandel {

/// What decides at present what a phrase means. Main thread.
[[nodiscard]] inline PhraseSettings phraseSettingsInForce(const VoiceController& controller) {
    return {controller.wakeWord(), controller.useWakeWord(), controller.customCommands(),
            controller.builtInTriggerOverrides()};
}

} // namespace brivandel
