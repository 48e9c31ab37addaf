#include "engine/DecisionText.h"

#include "engine/ExecutionPlan.h"
#include "engine/Overloaded.h"

#include <QStringList>

namespace brivandel {

namespace {

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

QString decisionScript(const Decision& decision) {
    return std::visit(Overloaded{
                          [](const TriggerWordOn&) { return QString(); },
                          [](const TriggerWordOff&) { return QString(); },
                          [](const BarNavigation& navigation) { return executionPlan(navigation).script; },
                          [](const BuiltInMatch& match) { return executionPlan(match.command).script; },
                          [](const CustomMatch& match) { return executionPlan(match.command).script; },
                      },
                      decision);
}

QString decisionKeys(const Decision& decision) {
    return pressingLines(decisionScript(decision));
}

} // namespace brivandel
