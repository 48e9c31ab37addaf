#include "engine/PhraseAdvice.h"

#include "engine/Overloaded.h"
#include "engine/Respelling.h"
#include "engine/SpokenPhrases.h"
#include "engine/WakePhrase.h"

#include <algorithm>
#include <optional>

namespace brivandel {

namespace {

QString inQuotes(const QString& text) {
    return u'“' + text + u'”';
}

QString heardAsText(const QString& trigger, const QString& commandName) {
    return trigger == commandName
               ? QStringLiteral("Holds %1, and is always heard as that.").arg(inQuotes(trigger))
               : QStringLiteral("Holds %1, and is always heard as %2.")
                     .arg(inQuotes(trigger), inQuotes(commandName));
}

QString heardAsText(const Decision& decision) {
    return std::visit(
        Overloaded{
            [](const TriggerWordOn& match) {
                return QStringLiteral("Holds %1, which switches the trigger word on.")
                    .arg(inQuotes(match.trigger));
            },
            [](const TriggerWordOff& match) {
                return QStringLiteral("Holds %1, which switches the trigger word off.")
                    .arg(inQuotes(match.trigger));
            },
            [](const BarNavigation& navigation) {
                return QStringLiteral("Holds a bar's number, and is always heard as %1.")
                    .arg(inQuotes(barNavigationLabel(navigation)));
            },
            [](const BuiltInMatch& match) { return heardAsText(match.trigger, rawValue(match.command)); },
            [](const CustomMatch& match) { return heardAsText(match.trigger, match.command.name); },
        },
        decision);
}

bool belongsTo(const Decision& decision, const PhraseOwner& owner) {
    if (const auto* builtIn = std::get_if<BuiltInMatch>(&decision)) {
        return owner == PhraseOwner(builtIn->command);
    }
    if (const auto* custom = std::get_if<CustomMatch>(&decision)) {
        return owner == PhraseOwner(custom->command.id);
    }
    return false;
}

PhoneSequence phonesOf(const QList<ExpectedWord>& words) {
    PhoneSequence phones;
    for (const ExpectedWord& word : words) {
        phones += phoneSequence(word.phones);
    }
    return phones;
}

RecognitionVocabulary vocabulary(const PhraseSettings& settings) {
    return spokenPhrases(settings.wakeWord, settings.useWakeWord, settings.triggerOverrides,
                         settings.customCommands);
}

} // namespace

QStringList phrasesInForce(const PhraseSettings& settings) {
    return vocabulary(settings).phrases;
}

bool isSerious(const PhraseAdvice& advice) {
    return std::visit(Overloaded{
                          [](const HeardAsAnother&) { return true; },
                          [](const HoldsWakePhrase&) { return true; },
                          [](const HidesAnother&) { return true; },
                          [](const CannotBeListenedFor&) { return true; },
                          [](const BeginsLongerPhrase&) { return false; },
                          [](const NotInDictionary&) { return false; },
                          [](const SoundsLikeAnother&) { return false; },
                      },
                      advice);
}

QString adviceText(const PhraseAdvice& advice) {
    return std::visit(
        Overloaded{
            [](const HeardAsAnother& heard) { return heardAsText(heard.other); },
            [](const HoldsWakePhrase& holds) {
                return QStringLiteral("Holds the wake phrase %1: only what follows it counts.")
                    .arg(inQuotes(holds.wakeWord));
            },
            [](const HidesAnother& hides) {
                return QStringLiteral("Because of it, %1 of %2 is never heard.")
                    .arg(inQuotes(hides.phrase), inQuotes(hides.commandName));
            },
            [](const CannotBeListenedFor& cannot) {
                return QStringLiteral("Cannot be listened for: %1 is no word that English could pronounce.")
                    .arg(inQuotes(cannot.word));
            },
            [](const BeginsLongerPhrase& begins) {
                return QStringLiteral("%1 begins the same way, so this waits a moment for the rest.")
                    .arg(inQuotes(begins.longer));
            },
            [](const NotInDictionary& unknown) {
                return QStringLiteral("%1 is in no dictionary; listened for as %2.")
                    .arg(inQuotes(unknown.word), inQuotes(respelled(unknown.phones)));
            },
            [](const SoundsLikeAnother& sounds) {
                return QStringLiteral("Sounds very much like %1 of %2: one may be taken for the other.")
                    .arg(inQuotes(sounds.phrase), inQuotes(sounds.commandName));
            },
        },
        advice);
}

PhraseAdviser::PhraseAdviser(const PhraseSettings& settings, const ExpectedPhrases& expected)
    : wakeWord_(settings.wakeWord)
    , useWakeWord_(settings.useWakeWord)
    , customCommands_(settings.customCommands) {
    matcher_.setTriggerOverrides(settings.triggerOverrides);
    matcher_.setCustomCommands(settings.customCommands);
    const RecognitionVocabulary everything = vocabulary(settings);
    everyPhrase_ = everything.phrases + everything.barPhrases;

    const auto add = [&](const QStringList& phrases, const QString& commandName, const PhraseOwner& owner) {
        for (const QString& phrase : phrases) {
            commandPhrases_.push_back(
                {phrase, commandName, owner, phonesOf(expected.value(phrase.toLower()))});
        }
    };
    for (const VoiceCommand command : allVoiceCommands) {
        add(triggersInForce(command, settings.triggerOverrides), rawValue(command), command);
    }
    for (const CustomCommand& command : settings.customCommands) {
        if (command.isEnabled) {
            add(command.triggers, command.name, command.id);
        }
    }
}

qsizetype PhraseAdviser::placeOf(const QUuid& id) const {
    const auto place = std::ranges::find(customCommands_, id, &CustomCommand::id);
    return place - customCommands_.begin();
}

// Whether what was found in the phrase is acted on rather than the phrase as its owner's.
bool PhraseAdviser::comesBefore(const Decision& found, const QString& phrase,
                                const PhraseOwner& owner) const {
    if (belongsTo(found, owner)) {
        return false;
    }
    const auto* ownBuiltIn = std::get_if<VoiceCommand>(&owner);
    if (const auto* builtIn = std::get_if<BuiltInMatch>(&found)) {
        // Among the built-in phrases the longest wins, and what is in the phrase is as long at most.
        return ownBuiltIn == nullptr || (builtIn->trigger == phrase && builtIn->command < *ownBuiltIn);
    }
    if (const auto* custom = std::get_if<CustomMatch>(&found)) {
        return ownBuiltIn == nullptr && placeOf(custom->command.id) < placeOf(std::get<QUuid>(owner));
    }
    return true;
}

bool PhraseAdviser::holdsWakePhrase(const QString& phrase) const {
    if (!useWakeWord_) {
        return false;
    }
    const QString said = (wakeWord_ + u' ' + phrase).toLower();
    const auto command = textAfterWakePhrase(said, wakeWord_);
    return command && *command != phrase.toLower().trimmed();
}

bool PhraseAdviser::hides(const QString& phrase, const PhraseOwner& owner, const OtherPhrase& other) const {
    if (other.owner == owner || !other.phrase.contains(phrase)) {
        return false;
    }
    const auto* ownBuiltIn = std::get_if<VoiceCommand>(&owner);
    if (const auto* otherBuiltIn = std::get_if<VoiceCommand>(&other.owner)) {
        if (ownBuiltIn == nullptr || other.phrase != phrase || *otherBuiltIn < *ownBuiltIn) {
            return false;
        }
    } else if (ownBuiltIn == nullptr &&
               placeOf(std::get<QUuid>(other.owner)) < placeOf(std::get<QUuid>(owner))) {
        return false;
    }
    // What is hidden by something else is not this phrase's doing.
    const auto now = matcher_.match(other.phrase);
    return now && (belongsTo(*now, other.owner) || belongsTo(*now, owner));
}

std::vector<PhraseAdvice> PhraseAdviser::advice(const QString& phrase, const PhraseOwner& owner,
                                                const QList<ExpectedWord>& sound) const {
    if (phrase.isEmpty()) {
        return {};
    }
    const std::vector<Decision> found = matcher_.candidates(phrase);
    const auto instead = std::ranges::find_if(
        found, [&](const Decision& decision) { return comesBefore(decision, phrase, owner); });
    if (instead != found.end()) {
        return {HeardAsAnother{*instead}}; // nothing else about it matters
    }

    std::vector<PhraseAdvice> advice;
    if (holdsWakePhrase(phrase)) {
        advice.emplace_back(HoldsWakePhrase{wakeWord_});
    }
    for (const ExpectedWord& word : sound) {
        if (word.phones.isEmpty()) {
            advice.emplace_back(CannotBeListenedFor{word.word});
        }
    }
    const auto hidden = std::ranges::find_if(
        commandPhrases_, [&](const OtherPhrase& other) { return hides(phrase, owner, other); });
    if (hidden != commandPhrases_.end()) {
        advice.emplace_back(HidesAnother{hidden->phrase, hidden->commandName});
    }
    const QString beginning = phrase + u' ';
    const auto longer =
        std::ranges::find_if(everyPhrase_, [&](const QString& other) { return other.startsWith(beginning); });
    if (longer != everyPhrase_.end()) {
        advice.emplace_back(BeginsLongerPhrase{*longer});
    }
    for (const ExpectedWord& word : sound) {
        if (!word.isInDictionary && !word.phones.isEmpty()) {
            advice.emplace_back(NotInDictionary{word.word, word.phones});
        }
    }
    if (const OtherPhrase* other = confusable(phrase, owner, phonesOf(sound))) {
        advice.emplace_back(SoundsLikeAnother{other->phrase, other->commandName});
    }
    return advice;
}

const PhraseAdviser::OtherPhrase* PhraseAdviser::confusable(const QString& phrase, const PhraseOwner& owner,
                                                            const PhoneSequence& phones) const {
    const OtherPhrase* nearest = nullptr;
    double nearestDistance = confusableDistance;
    for (const OtherPhrase& other : commandPhrases_) {
        if (phones.isEmpty() || other.phones.isEmpty() || other.owner == owner || other.phrase == phrase) {
            continue;
        }
        const double distance = soundDistance(phones, other.phones, nearestDistance);
        if (distance < nearestDistance || (nearest == nullptr && distance <= nearestDistance)) {
            nearest = &other;
            nearestDistance = distance;
        }
    }
    return nearest;
}

} // namespace brivandel
