#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace brivandel {

/// The keyboard layout by which keys are named: the current one if it can type a to z, else the first that
/// can.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;
    /// What the key types without modifiers; none when there is no such layout or the key types nothing.
    /// keyCode is a macOS virtual key code. Main thread.
    [[nodiscard]] virtual std::optional<QString> characterForKeyCode(std::uint16_t keyCode) const = 0;
};

} // namespace brivandel
