#include "platform/linux/keys/X11Keymap.h"

#include "platform/linux/keys/KeyCodes.h"

#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace brivandel::x11 {

namespace {

struct ModifierKey {
    KeyModifier modifier;
    xkb_keysym_t symbol;
    std::uint16_t usualEvdevCode;
};

/// In the order in which they are pressed.
constexpr std::array modifierKeys{
    ModifierKey{KeyModifier::Command, XKB_KEY_Control_L, KEY_LEFTCTRL},
    ModifierKey{KeyModifier::Shift, XKB_KEY_Shift_L, KEY_LEFTSHIFT},
    ModifierKey{KeyModifier::Option, XKB_KEY_Alt_L, KEY_LEFTALT},
    ModifierKey{KeyModifier::Control, XKB_KEY_Super_L, KEY_LEFTMETA},
};

bool isKeypadDigit(std::uint16_t evdevCode) {
    return (evdevCode >= KEY_KP7 && evdevCode <= KEY_KPDOT && evdevCode != KEY_KPMINUS &&
            evdevCode != KEY_KPPLUS);
}

xkb_mod_mask_t maskOf(xkb_keymap* keymap, const char* name) {
    const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap, name);
    return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

} // namespace

std::optional<Keymap> Keymap::read(const Connection& connection) {
    // A context that looks for no files: the keymap comes from the display.
    struct ReleaseContext {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
    };
    const std::unique_ptr<xkb_context, ReleaseContext> context(xkb_context_new(
        static_cast<xkb_context_flags>(XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES)));
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection.xcb());
    if (context == nullptr || device < 0) {
        return std::nullopt;
    }
    std::unique_ptr<xkb_keymap, Release> keymap(
        xkb_x11_keymap_new_from_device(context.get(), connection.xcb(), device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (keymap == nullptr) {
        return std::nullopt;
    }
    const std::unique_ptr<xkb_state, Release> state(
        xkb_x11_state_new_from_device(keymap.get(), connection.xcb(), device));
    if (state == nullptr) {
        return std::nullopt;
    }
    const xkb_layout_index_t layout = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    return Keymap(std::move(keymap), layout);
}

Keymap::Keymap(std::unique_ptr<xkb_keymap, Release> keymap, xkb_layout_index_t activeLayout)
    : keymap_(std::move(keymap))
    , activeLayout_(activeLayout) {}

std::optional<KeyPress> Keymap::pressForKeyCode(std::uint16_t virtualKeyCode, KeyModifiers modifiers) const {
    const auto evdevCode = evdevCodeForVirtualKeyCode(virtualKeyCode);
    if (!evdevCode) {
        return std::nullopt;
    }
    const unsigned key = *evdevCode + xKeyCodeOffset;
    if (key < firstKey() || key > lastKey()) {
        return std::nullopt;
    }
    KeyPress result{
        .key = static_cast<xcb_keycode_t>(key), .held = {}, .needsNumLock = isKeypadDigit(*evdevCode)};
    hold(result, modifiers);
    return result;
}

std::optional<KeyPress> Keymap::pressForCharacter(char32_t character, KeyModifiers modifiers) const {
    std::optional<KeyPress> best;
    for (xkb_keycode_t key = firstKey(); key <= lastKey(); ++key) {
        const xkb_layout_index_t layout = layoutOf(key, activeLayout_);
        if (layout == XKB_LAYOUT_INVALID) {
            continue;
        }
        const xkb_level_index_t levelCount = xkb_keymap_num_levels_for_key(keymap_.get(), key, layout);
        for (xkb_level_index_t level = 0; level < levelCount; ++level) {
            if (xkb_keysym_to_utf32(symbol(key, layout, level)) != character) {
                continue;
            }
            auto held = keysForLevel(key, layout, level);
            // Of several ways the one with the fewest keys; the main block comes before the keypad and the
            // like.
            if (held && (!best || held->size() < best->held.size())) {
                best = KeyPress{.key = static_cast<xcb_keycode_t>(key), .held = std::move(*held)};
            }
        }
    }
    if (best) {
        hold(*best, modifiers);
    }
    return best;
}

void Keymap::hold(KeyPress& press, KeyModifiers modifiers) const {
    for (const ModifierKey& modifier : modifierKeys) {
        if (!modifiers.testFlag(modifier.modifier)) {
            continue;
        }
        const xcb_keycode_t key = modifierKey(modifier.symbol, modifier.usualEvdevCode);
        if (std::ranges::find(press.held, key) == press.held.end()) {
            press.held.push_back(key);
        }
    }
}

/// Where the layout has moved a modifier (Caps Lock made a Control, say), it is looked for.
xcb_keycode_t Keymap::modifierKey(xkb_keysym_t wanted, std::uint16_t usualEvdevCode) const {
    const auto usual = static_cast<xcb_keycode_t>(usualEvdevCode + xKeyCodeOffset);
    const auto hasIt = [&](xkb_keycode_t key) {
        const xkb_layout_index_t layout = layoutOf(key, activeLayout_);
        return layout != XKB_LAYOUT_INVALID && symbol(key, layout, 0) == wanted;
    };
    if (hasIt(usual)) {
        return usual;
    }
    for (xkb_keycode_t key = firstKey(); key <= lastKey(); ++key) {
        if (hasIt(key)) {
            return static_cast<xcb_keycode_t>(key);
        }
    }
    return usual;
}

xkb_keycode_t Keymap::firstKey() const {
    return xkb_keymap_min_keycode(keymap_.get());
}

/// A keymap may have more keys than the core protocol can send.
xkb_keycode_t Keymap::lastKey() const {
    return std::min<xkb_keycode_t>(xkb_keymap_max_keycode(keymap_.get()), UINT8_MAX);
}

std::optional<std::vector<xcb_keycode_t>> Keymap::keysForLevel(xkb_keycode_t key, xkb_layout_index_t layout,
                                                               xkb_level_index_t level) const {
    if (level == 0) {
        return std::vector<xcb_keycode_t>{};
    }
    std::array<xkb_mod_mask_t, 16> masks{};
    const std::size_t count =
        xkb_keymap_key_get_mods_for_level(keymap_.get(), key, layout, level, masks.data(), masks.size());
    const xkb_mod_mask_t shift = maskOf(keymap_.get(), XKB_MOD_NAME_SHIFT);
    // The real modifier that third-level keys set in every layout of xkeyboard-config.
    const xkb_mod_mask_t thirdLevel = maskOf(keymap_.get(), "Mod5");
    const auto shiftKey = modifierKey(XKB_KEY_Shift_L, KEY_LEFTSHIFT);
    const auto thirdLevelKey = modifierKey(XKB_KEY_ISO_Level3_Shift, KEY_RIGHTALT);

    std::optional<std::vector<xcb_keycode_t>> best;
    for (const xkb_mod_mask_t mask : std::span(masks).first(std::min(count, masks.size()))) {
        if (mask == 0 || (mask & ~(shift | thirdLevel)) != 0) {
            continue;
        }
        std::vector<xcb_keycode_t> keys;
        if ((mask & thirdLevel) != 0) {
            keys.push_back(thirdLevelKey);
        }
        if ((mask & shift) != 0) {
            keys.push_back(shiftKey);
        }
        if (!best || keys.size() < best->size()) {
            best = std::move(keys);
        }
    }
    return best;
}

xkb_layout_index_t Keymap::layoutOf(xkb_keycode_t key, xkb_layout_index_t layout) const {
    const xkb_layout_index_t count = xkb_keymap_num_layouts_for_key(keymap_.get(), key);
    if (count == 0) {
        return XKB_LAYOUT_INVALID;
    }
    // A key with fewer groups than the keyboard begins again with its first; the server does the same.
    return layout % count;
}

xkb_keysym_t Keymap::symbol(xkb_keycode_t key, xkb_layout_index_t layout, xkb_level_index_t level) const {
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap_.get(), key, layout, level, &symbols);
    return count == 1 ? *symbols : static_cast<xkb_keysym_t>(XKB_KEY_NoSymbol);
}

KeyRun Keymap::spareKeys() const {
    KeyRun longest;
    KeyRun run;
    for (xkb_keycode_t key = firstKey(); key <= lastKey(); ++key) {
        if (xkb_keymap_num_layouts_for_key(keymap_.get(), key) != 0) {
            run.count = 0;
            continue;
        }
        if (run.count == 0) {
            run.first = static_cast<xcb_keycode_t>(key);
        }
        ++run.count;
        if (run.count > longest.count) {
            longest = run;
        }
    }
    return longest;
}

bool Keymap::isLockKey(xcb_keycode_t key) const {
    const xkb_layout_index_t layout = layoutOf(key, activeLayout_);
    if (layout == XKB_LAYOUT_INVALID) {
        return false;
    }
    const xkb_keysym_t locks[] = {XKB_KEY_Caps_Lock,   XKB_KEY_Shift_Lock,      XKB_KEY_Num_Lock,
                                  XKB_KEY_Scroll_Lock, XKB_KEY_ISO_Level3_Lock, XKB_KEY_ISO_Level5_Lock};
    return std::ranges::find(locks, symbol(key, layout, 0)) != std::end(locks);
}

std::uint8_t Keymap::numLockMask() const {
    return static_cast<std::uint8_t>(maskOf(keymap_.get(), "Mod2"));
}

bool Keymap::typesAllLetters(xkb_layout_index_t layout) const {
    std::array<bool, 26> typed{};
    for (xkb_keycode_t key = firstKey(); key <= lastKey(); ++key) {
        if (layout >= xkb_keymap_num_layouts_for_key(keymap_.get(), key)) {
            continue;
        }
        const std::uint32_t character = xkb_keysym_to_utf32(symbol(key, layout, 0));
        if (character >= U'a' && character <= U'z') {
            typed[character - U'a'] = true;
        }
    }
    return std::ranges::all_of(typed, std::identity{});
}

std::optional<xkb_layout_index_t> Keymap::layoutOfLetters() const {
    if (typesAllLetters(activeLayout_)) {
        return activeLayout_;
    }
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(keymap_.get()); ++layout) {
        if (typesAllLetters(layout)) {
            return layout;
        }
    }
    return std::nullopt;
}

std::optional<QString> Keymap::nameOfKey(xcb_keycode_t key) const {
    const auto layout = layoutOfLetters();
    if (!layout) {
        return std::nullopt;
    }
    const std::unique_ptr<xkb_state, Release> state(xkb_state_new(keymap_.get()));
    xkb_state_update_mask(state.get(), 0, 0, numLockMask(), 0, 0, *layout);
    const std::uint32_t character = xkb_state_key_get_utf32(state.get(), key);
    // Return, Escape and the like "type" control characters, which name nothing.
    if (character == 0 || QChar::category(character) == QChar::Other_Control) {
        return std::nullopt;
    }
    const auto unit = static_cast<char32_t>(character);
    return QString::fromUcs4(&unit, 1);
}

} // namespace brivandel::x11
