#pragma once

#include <QString>

#include <cstdint>

namespace brivandel {

/// The modifier flags of a key event that count here, with the platform's values; other bits are kept and
/// ignored.
enum ModifierFlag : std::int64_t {
    shiftModifier = 0x20000,
    controlModifier = 0x40000,
    optionModifier = 0x80000,
    commandModifier = 0x100000,
};

/// A keyboard shortcut as it was captured. Label and script belong to that moment: they are stored and never
/// computed again, so a change of keyboard layout does not change what a command shows or sends.
struct CapturedKey {
    std::int64_t keyCode = 0;       ///< macOS virtual key code
    std::int64_t modifierFlags = 0; ///< the event's flags without their low 16 bits
    QString displayString;
    QString appleScript;

    bool operator==(const CapturedKey&) const = default;
};

} // namespace brivandel
