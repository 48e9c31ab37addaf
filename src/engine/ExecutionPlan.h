#pragma once

#include "engine/TranscriptMatcher.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace brivandel {

/// All that is shown, logged and run for one command: the three kinds differ in their texts alone.
struct ExecutionPlan {
    QString label;  ///< as the last command, and after the check mark
    QString detail; ///< after "Executing: "
    QString script;
    QStringList linesBefore; ///< logged before the script runs
    QString failurePrefix;   ///< logged with the error's description after it
    QString successLine;
    std::optional<VoiceCommand> recordAs; ///< what enters the history on success: built-in commands only
};

[[nodiscard]] ExecutionPlan executionPlan(VoiceCommand command);
[[nodiscard]] ExecutionPlan executionPlan(const CustomCommand& command);
[[nodiscard]] ExecutionPlan executionPlan(const BarNavigation& navigation);

} // namespace brivandel
