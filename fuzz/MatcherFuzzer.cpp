// Any triggers and any text: what is reported as found is in the text, and the first candidate is the match.

#include "FuzzText.h"
#include "Require.h"
#include "engine/PhraseTrial.h"

namespace {

using namespace brivandel;

void requireInText(const Decision& decision, const QString& text) {
    const auto holds = [&text](const QString& trigger) {
        require(!trigger.isEmpty() && text.contains(trigger), "a reported trigger is in the text");
    };
    if (const auto* on = std::get_if<TriggerWordOn>(&decision)) {
        holds(on->trigger);
    } else if (const auto* off = std::get_if<TriggerWordOff>(&decision)) {
        holds(off->trigger);
    } else if (const auto* builtIn = std::get_if<BuiltInMatch>(&decision)) {
        holds(builtIn->trigger);
    } else if (const auto* custom = std::get_if<CustomMatch>(&decision)) {
        holds(custom->trigger);
        require(custom->command.triggers.contains(custom->trigger), "it is the command's own");
        require(custom->command.isEnabled, "a command that is switched off is not found");
    } else {
        require(text.contains(u"bar", Qt::CaseInsensitive), "who names no bar goes to none");
    }
}

} // namespace

// Lines: the wake phrase, a trigger for "play", triggers of two commands, and the rest is what was said.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QStringList lines = fuzzText(data, size).split(u'\n');
    const QString said = lines.mid(4).join(u'\n');
    const auto command = [&lines](int line) {
        return CustomCommand{.id = {},
                             .name = QString::number(line),
                             .triggers = lines.value(line).split(u','),
                             .capturedKey = {},
                             .isEnabled = !lines.value(line).startsWith(u'-')};
    };
    PhraseSettings settings{lines.value(0), true, {command(2), command(3)}, {}};
    if (const QString own = lines.value(1); !own.isEmpty()) {
        settings.triggerOverrides[QStringLiteral("play")] = own.split(u',');
    }

    TranscriptMatcher matcher;
    matcher.setTriggerOverrides(settings.triggerOverrides);
    matcher.setCustomCommands(settings.customCommands);
    const auto match = matcher.match(said);
    const auto candidates = matcher.candidates(said);
    require(match.has_value() == !candidates.empty(), "there is a match when there are candidates");
    for (const Decision& decision : candidates) {
        requireInText(decision, said);
    }
    require(!match || match->index() == candidates.front().index(), "the match is the first candidate");

    const PhraseOutcome outcome = PhraseTrial(settings).outcome(said);
    require(outcome.woke || outcome.decisions.empty(), "nothing happens before the wake phrase");
    return 0;
}
