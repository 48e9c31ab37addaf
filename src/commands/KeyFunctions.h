#pragma once

#include "commands/CapturedKey.h"
#include "platform/KeyboardLayout.h"

#include <QString>

#include <cstdint>

namespace brivandel {

/// How a shortcut is shown: the glyphs of its modifiers in the order ⌃⌥⇧⌘, then the key's name, as in "⇧⌘S".
/// The key code must be between 0 and 65535 (events have 0 to 127); anything else ends the program.
[[nodiscard]] QString keyDisplayString(std::int64_t keyCode, std::int64_t modifierFlagsRaw,
                                       const KeyboardLayout& layout);

/// The AppleScript that presses a shortcut in Logic Pro, by key code, whatever the keyboard layout.
[[nodiscard]] QString appleScriptForKey(std::int64_t keyCode, std::int64_t modifierFlagsRaw);

/// The record of a shortcut that has just been pressed.
[[nodiscard]] CapturedKey captureKey(std::int64_t keyCode, std::int64_t modifierFlagsRaw,
                                     const KeyboardLayout& layout);

} // namespace brivandel
