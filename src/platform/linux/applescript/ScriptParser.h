#pragma once

#include "platform/linux/applescript/Script.h"

#include <QString>
#include <QStringView>

#include <chrono>
#include <cstdint>
#include <variant>

namespace brivandel::script {

/// What a script may ask for. The program's own scripts stay far below each of them; what is above was never
/// written by it. Nesting needs no number: the grammar has two levels, application and process.
namespace limits {
/// In UTF-16 units. The longest script of the program has fewer than 300.
inline constexpr qsizetype sourceLength = 4096;
/// In UTF-16 units. The program types a letter, or a bar number.
inline constexpr qsizetype keystrokeLength = 256;
/// Of one delay, and of all of them together. The program's longest script waits for 1.1 seconds in all.
inline constexpr std::chrono::milliseconds delay = std::chrono::seconds{10};
inline constexpr std::chrono::milliseconds totalDelay = std::chrono::seconds{30};
/// A macOS virtual key code is a number of seven bits.
inline constexpr std::uint16_t virtualKeyCode = 127;
} // namespace limits

/// Why a source is no script, and where.
struct ScriptSyntaxError {
    QString message; ///< as a sentence, without the place
    SourceRange range;
    int line = 1;   ///< from 1
    int column = 1; ///< from 1, in UTF-16 units
};

/// Reads the whole source. Pure; any thread.
[[nodiscard]] std::variant<Script, ScriptSyntaxError> parseScript(QStringView source);

} // namespace brivandel::script
