#pragma once

#include <QString>
#include <QStringList>

namespace brivandel {

/// The phrases that mean something at present, all lower case. A recogniser with a small vocabulary listens
/// for these and nothing else; one with a vocabulary of its own is free to ignore them.
struct RecognitionVocabulary {
    /// Said before a command, as in "hey logic play". Empty: none is configured.
    QString wakePhrase;
    /// When false, commands are also understood without the wake phrase.
    bool wakePhraseRequired = true;
    /// Every trigger in force: built-in, the user's own, the spoken switches. No duplicates, none empty.
    QStringList phrases;
    /// What stands before a spoken bar number, as in "go to bar" (then 0 to 9999).
    QStringList barPhrases;

    bool operator==(const RecognitionVocabulary&) const = default;
};

} // namespace brivandel
