#pragma once

#include "commands/VoiceCommand.h"
#include "engine/PhraseSettings.h"
#include "engine/SoundLikeness.h"
#include "engine/TranscriptMatcher.h"
#include "platform/PronunciationGuide.h"

#include <QString>
#include <QUuid>

#include <variant>
#include <vector>

namespace brivandel {

/// The phrase holds something that is found first, so it is never heard as its own command.
struct HeardAsAnother {
    Decision other;
};
/// The phrase holds the wake phrase, so that only what follows it counts.
struct HoldsWakePhrase {
    QString wakeWord;
};
/// Because of the phrase, one of another command is never heard any more.
struct HidesAnother {
    QString phrase;
    QString commandName;
};
/// The phrase cannot be listened for: this word is none that could be pronounced.
struct CannotBeListenedFor {
    QString word;
};
/// A longer phrase begins with this one, so the end of it has to be waited for.
struct BeginsLongerPhrase {
    QString longer;
};
/// The word stands in no dictionary; how it is expected to sound.
struct NotInDictionary {
    QString word;
    QString phones; ///< ARPAbet, parted by spaces
};
/// One phrase may be taken for the other.
struct SoundsLikeAnother {
    QString phrase;
    QString commandName;
};

/// What the author of a phrase may want to know about it. It stops nobody.
using PhraseAdvice = std::variant<HeardAsAnother, HoldsWakePhrase, HidesAnother, CannotBeListenedFor,
                                  BeginsLongerPhrase, NotInDictionary, SoundsLikeAnother>;

/// Whose phrase it is: a built-in command's, or the custom command's of that identity, which is null for one
/// that is being made.
using PhraseOwner = std::variant<VoiceCommand, QUuid>;

/// Whether the advice says that a command is not heard at all.
[[nodiscard]] bool isSerious(const PhraseAdvice& advice);

/// Every phrase that can be said at present, whose sound counts for the advice.
[[nodiscard]] QStringList phrasesInForce(const PhraseSettings& settings);

/// The advice as one sentence.
[[nodiscard]] QString adviceText(const PhraseAdvice& advice);

/// Looks at phrases in the light of all others. Pure: nothing but its arguments counts.
class PhraseAdviser {
public:
    /// The expected phrases may be empty or incomplete: there is then no advice about sound.
    PhraseAdviser(const PhraseSettings& settings, const ExpectedPhrases& expected);

    /// The most serious first. The phrase as it would be stored; it may be the owner's already. Its own sound
    /// is looked up among those given here.
    [[nodiscard]] std::vector<PhraseAdvice> advice(const QString& phrase, const PhraseOwner& owner,
                                                   const QList<ExpectedWord>& sound) const;

private:
    struct OtherPhrase {
        QString phrase;
        QString commandName;
        PhraseOwner owner;
        PhoneSequence phones;
    };

    /// Where the owner stands among the custom commands: a new one will be the last.
    [[nodiscard]] qsizetype placeOf(const QUuid& id) const;
    [[nodiscard]] bool comesBefore(const Decision& found, const QString& phrase,
                                   const PhraseOwner& owner) const;
    [[nodiscard]] bool holdsWakePhrase(const QString& phrase) const;
    [[nodiscard]] bool hides(const QString& phrase, const PhraseOwner& owner, const OtherPhrase& other) const;
    [[nodiscard]] const OtherPhrase* confusable(const QString& phrase, const PhraseOwner& owner,
                                                const PhoneSequence& phones) const;

    QString wakeWord_;
    bool useWakeWord_;
    CustomCommandList customCommands_;
    TranscriptMatcher matcher_;
    QStringList everyPhrase_; // also the spoken switches, and what stands before a bar's number
    std::vector<OtherPhrase> commandPhrases_;
};

} // namespace brivandel
