#pragma once

#include <QString>

namespace brivandel {

/// How many columns a terminal takes for a text: two for what is wide in East Asian scripts and for emoji,
/// none for what combines with the character before it.
[[nodiscard]] int columnsOf(const QString& text);

/// The text on one line of so many columns: what does not fit gives way to an ellipsis, and line breaks and
/// other control characters to a space each.
[[nodiscard]] QString fittedTo(int columns, const QString& text);

/// The width of the terminal that standard output is; 80 when it is none, or does not say.
[[nodiscard]] int terminalColumns();

} // namespace brivandel
