#pragma once

#include "commands/CustomCommand.h"
#include "commands/TriggerOverrides.h"
#include "commands/VoiceCommand.h"
#include "engine/BarNavigation.h"
#include "engine/BarNumberParser.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <variant>
#include <vector>

namespace brivandel {

/// The five things that a phrase can mean. A trigger is the phrase that was found in it.
struct TriggerWordOn {
    QString trigger;
};
struct TriggerWordOff {
    QString trigger;
};
struct BuiltInMatch {
    VoiceCommand command{};
    QString trigger;
};
struct CustomMatch {
    CustomCommand command;
    QString trigger;
};

using Decision = std::variant<TriggerWordOn, TriggerWordOff, BarNavigation, BuiltInMatch, CustomMatch>;

/// Decides which command a text means: the spoken switches for the trigger word first, then a bar number,
/// then the built-in triggers, longest first over all commands, then the user's commands in their order,
/// longest first within each. A trigger is found wherever its characters stand, inside a word too ("display"
/// holds "play").
///
/// Pure: the same text and settings give the same decision, and nothing happens. Lists are sorted when
/// settings change, not when somebody speaks. Not to be called on two threads at once.
class TranscriptMatcher {
public:
    TranscriptMatcher();

    void setTriggerOverrides(const TriggerOverrides& overrides);
    void setCustomCommands(const CustomCommandList& commands);

    /// The text is the part after the wake phrase, in lower case.
    [[nodiscard]] std::optional<Decision> match(QStringView text) const;

    /// Everything that the text holds, in the order of precedence: the first is what match() gives, the
    /// others are hidden by it. One entry a command.
    [[nodiscard]] std::vector<Decision> candidates(QStringView text) const;

private:
    struct BuiltInTrigger {
        VoiceCommand command;
        QString trigger;
    };
    struct CustomTriggers {
        CustomCommand command;
        QStringList longestFirst;
    };

    // Calls the visitor with each candidate in turn, until it says false.
    template <typename Visitor>
    void visitCandidates(QStringView text, Visitor visitor) const;

    BarNumberParser barNumbers_;
    std::vector<BuiltInTrigger> builtInTriggers_; // longest first
    std::vector<CustomTriggers> customTriggers_;  // the enabled commands, in the user's order
};

/// The spoken switches, as they are listened for.
[[nodiscard]] const QStringList& triggerWordOnPhrases();
[[nodiscard]] const QStringList& triggerWordOffPhrases();

/// The triggers by which a command is reached, given the user's own.
[[nodiscard]] QStringList triggersInForce(VoiceCommand command, const TriggerOverrides& overrides);

} // namespace brivandel
