#pragma once

#include "engine/ExecutionPlan.h"
#include "platform/Lifeline.h"
#include "platform/ScriptHost.h"

#include <QString>

#include <optional>

namespace brivandel {

class Beeper;
class DiagnosticLog;
class MainQueue;
class WorkQueue;

/// What an execution changes in its surroundings. Main thread.
class ExecutionObserver {
public:
    virtual ~ExecutionObserver() = default;
    virtual void executionShowsCommand(const QString& label) = 0;
    virtual void executionShowsStatus(const QString& status) = 0;
    /// A command was given, whether or not it will succeed.
    virtual void executionCountsAsActivity() = 0;
    virtual void executionSucceeded(VoiceCommand command) = 0;
    [[nodiscard]] virtual bool executionMayBeep() const = 0;
};

/// Carries commands out: announces, runs the script off the main thread, reports the outcome. Several may be
/// under way at once; outcomes come in the order in which scripts end. Main thread; all that it is given must
/// outlive it, and the script host the work queue too.
class CommandExecutor {
public:
    struct Services {
        MainQueue& mainQueue;
        WorkQueue& workQueue;
        ScriptHost& scriptHost;
        Beeper& beeper;
        DiagnosticLog& log;
    };

    CommandExecutor(const Services& services, ExecutionObserver& observer);

    /// Returns at once. A failure is shown and logged, never retried.
    void execute(ExecutionPlan plan);

private:
    void finish(const ExecutionPlan& plan, const std::optional<ScriptErrorDictionary>& error);

    Services services_;
    ExecutionObserver& observer_;
    Lifeline lifeline_;
};

} // namespace brivandel
