#include "engine/CommandExecutor.h"

#include "platform/Beeper.h"
#include "platform/DiagnosticLog.h"
#include "platform/MainQueue.h"
#include "platform/WorkQueue.h"

#include <utility>

namespace brivandel {

namespace {

QString messageOf(const ScriptErrorDictionary& error) {
    const QVariant message = error.value(QString::fromUtf16(ScriptErrorKey::message));
    return message.isValid() ? message.toString() : QStringLiteral("Unknown error");
}

} // namespace

CommandExecutor::CommandExecutor(const Services& services, ExecutionObserver& observer)
    : services_(services)
    , observer_(observer) {}

void CommandExecutor::execute(ExecutionPlan plan) {
    observer_.executionShowsCommand(plan.label);
    observer_.executionShowsStatus(QStringLiteral("Executing: ") + plan.detail);
    observer_.executionCountsAsActivity();
    for (const QString& line : std::as_const(plan.linesBefore)) {
        services_.log.write(line);
    }

    // Only the hop back touches this object, and only while it lives.
    auto report = lifeline_.guard(
        [this](const ExecutionPlan& executed, const std::optional<ScriptErrorDictionary>& error) {
            finish(executed, error);
        });
    services_.workQueue.run([&host = services_.scriptHost, &mainQueue = services_.mainQueue,
                             plan = std::move(plan), report = std::move(report)] {
        auto error = host.run(plan.script);
        mainQueue.post([report, plan, error = std::move(error)]() mutable { report(plan, error); });
    });
}

void CommandExecutor::finish(const ExecutionPlan& plan, const std::optional<ScriptErrorDictionary>& error) {
    if (error) {
        observer_.executionShowsStatus(QStringLiteral("Error: ") + messageOf(*error));
        services_.log.write(plan.failurePrefix + describe(*error));
        return;
    }
    observer_.executionShowsStatus(QStringLiteral("✓ ") + plan.label);
    services_.log.write(plan.successLine);
    if (observer_.executionMayBeep()) {
        services_.beeper.beep();
    }
    if (plan.recordAs) {
        observer_.executionSucceeded(*plan.recordAs);
    }
}

} // namespace brivandel
