#pragma once

#include <QString>

namespace brivandel {

/// Without the spaces and tabs around it; line breaks stay.
[[nodiscard]] QString trimmedOfSpaces(const QString& text);

/// A phrase as it is stored and matched: trimmed and in lower case.
[[nodiscard]] QString triggerPhrase(const QString& typed);

} // namespace brivandel
