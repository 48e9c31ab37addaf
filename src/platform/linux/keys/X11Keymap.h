#pragma once

#include "platform/linux/keys/KeySender.h"
#include "platform/linux/keys/X11Connection.h"

#include <QString>

#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace brivandel::x11 {

/// A key to be pressed, and the keys to be held meanwhile.
struct KeyPress {
    xcb_keycode_t key = 0;
    std::vector<xcb_keycode_t> held;
    /// The keypad types digits only while Num Lock is on.
    bool needsNumLock = false;
};

/// Neighbouring keys.
struct KeyRun {
    xcb_keycode_t first = 0;
    std::uint8_t count = 0;
};

/// The keyboard as the display has it at one moment: what each key types, in which of its groups it is.
class Keymap {
public:
    /// None when the display does not tell.
    [[nodiscard]] static std::optional<Keymap> read(const Connection& connection);

    /// The key at that place. None for a key that this keyboard does not have.
    [[nodiscard]] std::optional<KeyPress> pressForKeyCode(std::uint16_t virtualKeyCode,
                                                          KeyModifiers modifiers) const;
    /// The key that types the character in the active group, with the Shift and the like that it takes. None
    /// when no key of the layout does.
    [[nodiscard]] std::optional<KeyPress> pressForCharacter(char32_t character, KeyModifiers modifiers) const;
    /// The longest run of neighbouring keys without any symbol.
    [[nodiscard]] KeyRun spareKeys() const;
    /// Whether the key switches a lock: to press it again does not undo it.
    [[nodiscard]] bool isLockKey(xcb_keycode_t key) const;
    [[nodiscard]] std::uint8_t numLockMask() const;

    /// What the key types without modifiers in the layout by which keys are named; see KeyboardLayout.
    [[nodiscard]] std::optional<QString> nameOfKey(xcb_keycode_t key) const;

private:
    struct Release {
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
        void operator()(xkb_state* state) const { xkb_state_unref(state); }
    };

    Keymap(std::unique_ptr<xkb_keymap, Release> keymap, xkb_layout_index_t activeLayout);
    [[nodiscard]] xkb_layout_index_t layoutOf(xkb_keycode_t key, xkb_layout_index_t layout) const;
    [[nodiscard]] xkb_keysym_t symbol(xkb_keycode_t key, xkb_layout_index_t layout,
                                      xkb_level_index_t level) const;
    [[nodiscard]] xkb_keycode_t firstKey() const;
    [[nodiscard]] xkb_keycode_t lastKey() const;
    [[nodiscard]] std::optional<xkb_layout_index_t> layoutOfLetters() const;
    [[nodiscard]] bool typesAllLetters(xkb_layout_index_t layout) const;
    [[nodiscard]] std::optional<std::vector<xcb_keycode_t>>
    keysForLevel(xkb_keycode_t key, xkb_layout_index_t layout, xkb_level_index_t level) const;
    [[nodiscard]] xcb_keycode_t modifierKey(xkb_keysym_t wanted, std::uint16_t usualEvdevCode) const;
    void hold(KeyPress& press, KeyModifiers modifiers) const;

    std::unique_ptr<xkb_keymap, Release> keymap_;
    xkb_layout_index_t activeLayout_;
};

} // namespace brivandel::x11
