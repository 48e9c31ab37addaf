#include "cli/DecisionJson.h"

#include "engine/DecisionText.h"
#include "engine/Overloaded.h"

namespace brivandel {

namespace {

nlohmann::ordered_json membersWithoutScript(const Decision& decision) {
    using Json = nlohmann::ordered_json;
    return std::visit(
        Overloaded{
            [](const TriggerWordOn& match) {
                return Json{{"kind", "triggerWordOn"}, {"trigger", match.trigger.toStdString()}};
            },
            [](const TriggerWordOff& match) {
                return Json{{"kind", "triggerWordOff"}, {"trigger", match.trigger.toStdString()}};
            },
            [](const BarNavigation& navigation) {
                return Json{{"kind", "bar"},
                            {"command", barNavigationLabel(navigation).toStdString()},
                            {"bar", navigation.bar},
                            {"thenPlay", navigation.thenPlay}};
            },
            [](const BuiltInMatch& match) {
                return Json{{"kind", "builtIn"},
                            {"command", rawValue(match.command).toStdString()},
                            {"trigger", match.trigger.toStdString()}};
            },
            [](const CustomMatch& match) {
                return Json{{"kind", "custom"},
                            {"command", match.command.name.toStdString()},
                            {"trigger", match.trigger.toStdString()}};
            },
        },
        decision);
}

} // namespace

nlohmann::ordered_json decisionMembers(const Decision& decision) {
    nlohmann::ordered_json members = membersWithoutScript(decision);
    const QString script = decisionScript(decision);
    if (!script.isEmpty()) {
        members["script"] = script.toStdString();
    }
    return members;
}

nlohmann::ordered_json outcomeJson(const PhraseOutcome& outcome) {
    nlohmann::ordered_json json = {{"phrase", outcome.phrase.toStdString()}, {"woke", outcome.woke}};
    if (outcome.decisions.empty()) {
        json["kind"] = "none";
    } else {
        json.update(decisionMembers(outcome.decisions.front()));
    }
    return json;
}

} // namespace brivandel
