#pragma once

#include "commands/CustomCommand.h"
#include "commands/TriggerOverrides.h"
#include "platform/RecognitionVocabulary.h"

#include <QString>

namespace brivandel {

/// Everything that can be said at present, for a recogniser with a small vocabulary: the triggers in force of
/// built-in and enabled custom commands, the spoken switches, and what stands before a bar number.
[[nodiscard]] RecognitionVocabulary spokenPhrases(const QString& wakePhrase, bool wakePhraseRequired,
                                                  const TriggerOverrides& overrides,
                                                  const CustomCommandList& customCommands);

} // namespace brivandel
