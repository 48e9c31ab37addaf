#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace brivandel {

/// One key of the keyboard under the numbers that two systems give it. A key is a place, not what is printed
/// on it.
struct KeyCodePair {
    /// The macOS virtual key code (kVK_… of its Events.h), 0 to 127.
    std::uint16_t virtualKeyCode;
    /// The evdev code (KEY_… of linux/input-event-codes.h).
    std::uint16_t evdevCode;
};

/// X key codes are evdev codes moved up by this many, in every server that uses the "evdev" key codes.
inline constexpr std::uint16_t xKeyCodeOffset = 8;

/// Every key that both systems have. Each number stands in it once. Modifiers follow Qt's convention: command
/// is Control, control is Super, option is Alt. Missing on purpose: the function key, which X cannot number;
/// the keys of Japanese keyboards; and 52, the second Enter of a notebook of 1999.
[[nodiscard]] std::span<const KeyCodePair> keyCodePairs();

/// None for a key that this keyboard does not have.
[[nodiscard]] std::optional<std::uint16_t> evdevCodeForVirtualKeyCode(std::uint16_t virtualKeyCode);
[[nodiscard]] std::optional<std::uint16_t> virtualKeyCodeForEvdevCode(std::uint16_t evdevCode);

} // namespace brivandel
