#include "engine/ExecutionPlan.h"

namespace brivandel {

ExecutionPlan executionPlan(VoiceCommand command) {
    const QString& label = rawValue(command);
    const QString script = appleScript(command);
    return {
        .label = label,
        .detail = description(command),
        .script = script,
        .linesBefore = {QStringLiteral("Executing command: ") + label,
                        QStringLiteral("AppleScript: ") + script},
        .failurePrefix = QStringLiteral("AppleScript error: "),
        .successLine = QStringLiteral("Command succeeded: ") + label,
        .recordAs = command,
    };
}

ExecutionPlan executionPlan(const CustomCommand& command) {
    const QString& script = command.capturedKey.appleScript;
    return {
        .label = command.name,
        .detail = command.name,
        .script = script,
        .linesBefore = {QStringLiteral("Executing custom command: ") + command.name,
                        QStringLiteral("AppleScript: ") + script},
        .failurePrefix = QStringLiteral("Custom command AppleScript error: "),
        .successLine = QStringLiteral("Custom command succeeded: ") + command.name,
        .recordAs = std::nullopt,
    };
}

ExecutionPlan executionPlan(const BarNavigation& navigation) {
    const QString label = barNavigationLabel(navigation);
    const QString script = barNavigationScript(navigation);
    return {
        .label = label,
        .detail = label,
        .script = script,
        .linesBefore = {QStringLiteral("Bar navigation script: ") + script},
        .failurePrefix = QStringLiteral("Bar navigation error: "),
        .successLine = QStringLiteral("Bar navigation succeeded: ") + label,
        .recordAs = std::nullopt,
    };
}

} // namespace brivandel
