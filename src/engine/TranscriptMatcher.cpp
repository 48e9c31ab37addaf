#include "engine/TranscriptMatcher.h"

#include "engine/BigramFilter.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace brivandel {

namespace {

// What a person would count: a letter with its accents is one, a flag is one.
qsizetype characterCount(const QString& text) {
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (boundaries.toNextBoundary() > 0) {
        ++count;
    }
    return count;
}

// Stable, and each length is counted once: ties keep the order in which commands and triggers were declared.
template <typename Item, typename Text>
std::vector<Item> longestFirst(const std::vector<Item>& items, Text text) {
    std::vector<std::pair<qsizetype, const Item*>> byLength;
    byLength.reserve(items.size());
    for (const Item& item : items) {
        byLength.emplace_back(characterCount(text(item)), &item);
    }
    std::ranges::stable_sort(byLength, std::ranges::greater{}, &std::pair<qsizetype, const Item*>::first);
    std::vector<Item> sorted;
    sorted.reserve(items.size());
    for (const auto& [length, item] : byLength) {
        sorted.push_back(*item);
    }
    return sorted;
}

// A text that is searched for many triggers.
class SearchedText {
public:
    explicit SearchedText(QStringView text) : text_(text), filter_(text) {}

    [[nodiscard]] bool holds(QStringView trigger) const {
        return !trigger.isEmpty() && filter_.mayHold(trigger) && text_.contains(trigger);
    }

    [[nodiscard]] const QString* firstHeld(const QStringList& triggers) const {
        const auto found =
            std::ranges::find_if(triggers, [this](const QString& trigger) { return holds(trigger); });
        return found == triggers.end() ? nullptr : &*found;
    }

private:
    QStringView text_;
    BigramFilter filter_;
};

} // namespace

const QStringList& triggerWordOnPhrases() {
    static const QStringList phrases = {QStringLiteral("enable trigger word"),
                                        QStringLiteral("trigger word on")};
    return phrases;
}

const QStringList& triggerWordOffPhrases() {
    static const QStringList phrases = {QStringLiteral("disable trigger word"),
                                        QStringLiteral("trigger word off")};
    return phrases;
}

QStringList triggersInForce(VoiceCommand command, const TriggerOverrides& overrides) {
    return overrides.value(rawValue(command), triggers(command));
}

TranscriptMatcher::TranscriptMatcher() {
    setTriggerOverrides({});
}

void TranscriptMatcher::setTriggerOverrides(const TriggerOverrides& overrides) {
    std::vector<BuiltInTrigger> declared;
    for (const VoiceCommand command : allVoiceCommands) {
        for (const QString& trigger : triggersInForce(command, overrides)) {
            declared.push_back({command, trigger});
        }
    }
    builtInTriggers_ = longestFirst(declared, [](const BuiltInTrigger& pair) { return pair.trigger; });
}

void TranscriptMatcher::setCustomCommands(const CustomCommandList& commands) {
    customTriggers_.clear();
    for (const CustomCommand& command : commands) {
        if (command.isEnabled) {
            const std::vector<QString> declared(command.triggers.cbegin(), command.triggers.cend());
            const std::vector<QString> sorted =
                longestFirst(declared, [](const QString& trigger) { return trigger; });
            customTriggers_.push_back({command, QStringList(sorted.cbegin(), sorted.cend())});
        }
    }
}

template <typename Visitor>
void TranscriptMatcher::visitCandidates(QStringView text, Visitor visitor) const {
    const SearchedText searched(text);
    if (const QString* trigger = searched.firstHeld(triggerWordOnPhrases());
        trigger && !visitor(TriggerWordOn{*trigger})) {
        return;
    }
    if (const QString* trigger = searched.firstHeld(triggerWordOffPhrases());
        trigger && !visitor(TriggerWordOff{*trigger})) {
        return;
    }
    if (const auto bar = barNumbers_.extractBarNumber(text)) {
        const bool thenPlay = searched.holds(u"play from") || searched.holds(u"play at");
        if (!visitor(BarNavigation{*bar, thenPlay})) {
            return;
        }
    }
    for (const auto& [command, trigger] : builtInTriggers_) {
        if (searched.holds(trigger) && !visitor(BuiltInMatch{command, trigger})) {
            return;
        }
    }
    for (const auto& [command, triggers] : customTriggers_) {
        if (const QString* trigger = searched.firstHeld(triggers);
            trigger && !visitor(CustomMatch{command, *trigger})) {
            return;
        }
    }
}

std::optional<Decision> TranscriptMatcher::match(QStringView text) const {
    std::optional<Decision> decision;
    visitCandidates(text, [&decision](auto candidate) {
        decision = std::move(candidate);
        return false;
    });
    return decision;
}

std::vector<Decision> TranscriptMatcher::candidates(QStringView text) const {
    std::vector<Decision> all;
    std::vector<VoiceCommand> seen;
    visitCandidates(text, [&](auto candidate) {
        if constexpr (std::is_same_v<decltype(candidate), BuiltInMatch>) {
            if (std::ranges::find(seen, candidate.command) != seen.end()) {
                return true;
            }
            seen.push_back(candidate.command);
        }
        all.emplace_back(std::move(candidate));
        return true;
    });
    return all;
}

} // namespace brivandel
