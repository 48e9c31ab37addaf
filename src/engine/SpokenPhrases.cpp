#include "engine/SpokenPhrases.h"

#include "engine/TranscriptMatcher.h"

namespace brivandel {

RecognitionVocabulary spokenPhrases(const QString& wakePhrase, bool wakePhraseRequired,
                                    const TriggerOverrides& overrides,
                                    const CustomCommandList& customCommands) {
    QStringList phrases = triggerWordOnPhrases() + triggerWordOffPhrases();
    for (const VoiceCommand command : allVoiceCommands) {
        phrases += triggersInForce(command, overrides);
    }
    for (const CustomCommand& command : customCommands) {
        if (command.isEnabled) {
            phrases += command.triggers;
        }
    }
    for (QString& phrase : phrases) {
        phrase = phrase.toLower();
    }
    phrases.removeAll(QString());
    phrases.removeDuplicates();

    return {
        .wakePhrase = wakePhrase.toLower(),
        .wakePhraseRequired = wakePhraseRequired,
        .phrases = phrases,
        .barPhrases = {QStringLiteral("go to bar"), QStringLiteral("play from bar"),
                       QStringLiteral("play at bar")},
    };
}

} // namespace brivandel
