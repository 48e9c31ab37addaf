#include "engine/PhraseTrial.h"

#include "engine/WakePhrase.h"

namespace brivandel {

PhraseTrial::PhraseTrial(const PhraseSettings& settings)
    : wakeWord_(settings.wakeWord)
    , useWakeWord_(settings.useWakeWord) {
    matcher_.setTriggerOverrides(settings.triggerOverrides);
    matcher_.setCustomCommands(settings.customCommands);
}

PhraseOutcome PhraseTrial::outcome(const QString& phrase) const {
    const QString transcript = phrase.toLower();
    if (!useWakeWord_) {
        return {phrase, false, true, matcher_.candidates(transcript)};
    }
    const auto command = textAfterWakePhrase(transcript, wakeWord_);
    if (!command) {
        return {phrase, false, false, {}};
    }
    if (command->isEmpty()) {
        return {phrase, true, false, {}};
    }
    return {phrase, true, true, matcher_.candidates(*command)};
}

} // namespace brivandel
