#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace brivandel {

/// The keyboard: which key an event is about, and the layout by which keys are named: the current one if it
/// can type a to z, else the first that can. Key codes are macOS virtual key codes. Main thread.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;
    /// What the key types without modifiers; none when there is no such layout or the key types nothing.
    [[nodiscard]] virtual std::optional<QString> characterForKeyCode(std::uint16_t keyCode) const = 0;
    /// The key of an event of the window system; scanCode is the number that the system itself gives the key.
    /// None for keys that are no part of a shortcut: those of media players, and those that nobody knows.
    [[nodiscard]] virtual std::optional<std::uint16_t>
    keyCodeForNativeScanCode(std::uint32_t scanCode) const = 0;
};

} // namespace brivandel
