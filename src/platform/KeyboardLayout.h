#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace brivandel {

/// What the window system says of the key that an event is about. Which of the two numbers tells keys apart
/// is the system's affair; the other may always be 0.
struct NativeKey {
    std::uint32_t scanCode = 0;
    std::uint32_t virtualKey = 0;

    bool operator==(const NativeKey&) const = default;
};

/// The keyboard: which key an event is about, and the layout by which keys are named: the current one if it
/// can type a to z, else the first that can. Key codes are macOS virtual key codes. Main thread.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;
    /// What the key types without modifiers; none when there is no such layout or the key types nothing.
    [[nodiscard]] virtual std::optional<QString> characterForKeyCode(std::uint16_t keyCode) const = 0;
    /// The key of an event of the window system. None for keys that are no part of a shortcut: those of media
    /// players, and those that nobody knows.
    [[nodiscard]] virtual std::optional<std::uint16_t> keyCodeForNativeKey(NativeKey key) const = 0;
};

} // namespace brivandel
