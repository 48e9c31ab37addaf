#pragma once

#include "platform/RecognitionVocabulary.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace brivandel {

/// Why nothing can be recognised on this machine, for people; none when it can. Any thread, looks for files.
[[nodiscard]] std::optional<QString> recognitionModelProblem();

/// For each phrase that cannot be listened for, a line that says which and why. Any thread; tens of
/// milliseconds.
[[nodiscard]] QStringList vocabularyProblems(const RecognitionVocabulary& vocabulary);

} // namespace brivandel
