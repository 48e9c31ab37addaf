#include "cli/DecisionText.h"

#include "engine/ExecutionPlan.h"

#include <QStringList>

namespace brivandel {

namespace {

template <typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
// Clang 14 does not find it by itself.
template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

std::string utf8(const QString& text) {
    return text.toStdString();
}

QString quoted(const QString& text) {
    return u'"' + text + u'"';
}

// The lines of a script that press something: the rest is the same in every script.
QString pressingLines(const QString& script) {
    QStringList presses;
    for (const QString& line : script.split(u'\n')) {
        const QString statement = line.trimmed();
        if (statement.startsWith(QStringLiteral("key code")) ||
            statement.startsWith(QStringLiteral("keystroke"))) {
            presses += statement;
        }
    }
    return presses.join(QStringLiteral(", then "));
}

} // namespace

nlohmann::ordered_json decisionMembers(const Decision& decision) {
    return std::visit(
        Overloaded{
            [](const TriggerWordOn& match) {
                return nlohmann::ordered_json{{"kind", "triggerWordOn"}, {"trigger", utf8(match.trigger)}};
            },
            [](const TriggerWordOff& match) {
                return nlohmann::ordered_json{{"kind", "triggerWordOff"}, {"trigger", utf8(match.trigger)}};
            },
            [](const BarNavigation& navigation) {
                const ExecutionPlan plan = executionPlan(navigation);
                return nlohmann::ordered_json{{"kind", "bar"},
                                              {"command", utf8(plan.label)},
                                              {"bar", navigation.bar},
                                              {"thenPlay", navigation.thenPlay},
                                              {"script", utf8(plan.script)}};
            },
            [](const BuiltInMatch& match) {
                return nlohmann::ordered_json{{"kind", "builtIn"},
                                              {"command", utf8(rawValue(match.command))},
                                              {"trigger", utf8(match.trigger)},
                                              {"script", utf8(appleScript(match.command))}};
            },
            [](const CustomMatch& match) {
                return nlohmann::ordered_json{{"kind", "custom"},
                                              {"command", utf8(match.command.name)},
                                              {"trigger", utf8(match.trigger)},
                                              {"script", utf8(match.command.capturedKey.appleScript)}};
            },
        },
        decision);
}

QString decisionText(const Decision& decision) {
    return std::visit(
        Overloaded{
            [](const TriggerWordOn& match) {
                return QStringLiteral("the trigger word is switched on, by ") + quoted(match.trigger);
            },
            [](const TriggerWordOff& match) {
                return QStringLiteral("the trigger word is switched off, by ") + quoted(match.trigger);
            },
            [](const BarNavigation& navigation) { return barNavigationLabel(navigation); },
            [](const BuiltInMatch& match) {
                return QStringLiteral("%1 (%2), by %3")
                    .arg(rawValue(match.command), description(match.command), quoted(match.trigger));
            },
            [](const CustomMatch& match) {
                return QStringLiteral("%1 (%2, your own command), by %3")
                    .arg(match.command.name, match.command.capturedKey.displayString, quoted(match.trigger));
            },
        },
        decision);
}

QString decisionKeys(const Decision& decision) {
    const auto members = decisionMembers(decision);
    const auto script = members.find("script");
    return script == members.end() ? QString()
                                   : pressingLines(QString::fromStdString(script->get<std::string>()));
}

} // namespace brivandel
