#include "platform/linux/keys/KeyCodes.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>

namespace brivandel {

namespace {

constexpr std::array table{
    // Letters.
    KeyCodePair{0, KEY_A},
    KeyCodePair{11, KEY_B},
    KeyCodePair{8, KEY_C},
    KeyCodePair{2, KEY_D},
    KeyCodePair{14, KEY_E},
    KeyCodePair{3, KEY_F},
    KeyCodePair{5, KEY_G},
    KeyCodePair{4, KEY_H},
    KeyCodePair{34, KEY_I},
    KeyCodePair{38, KEY_J},
    KeyCodePair{40, KEY_K},
    KeyCodePair{37, KEY_L},
    KeyCodePair{46, KEY_M},
    KeyCodePair{45, KEY_N},
    KeyCodePair{31, KEY_O},
    KeyCodePair{35, KEY_P},
    KeyCodePair{12, KEY_Q},
    KeyCodePair{15, KEY_R},
    KeyCodePair{1, KEY_S},
    KeyCodePair{17, KEY_T},
    KeyCodePair{32, KEY_U},
    KeyCodePair{9, KEY_V},
    KeyCodePair{13, KEY_W},
    KeyCodePair{7, KEY_X},
    KeyCodePair{16, KEY_Y},
    KeyCodePair{6, KEY_Z},
    // Digits.
    KeyCodePair{18, KEY_1},
    KeyCodePair{19, KEY_2},
    KeyCodePair{20, KEY_3},
    KeyCodePair{21, KEY_4},
    KeyCodePair{23, KEY_5},
    KeyCodePair{22, KEY_6},
    KeyCodePair{26, KEY_7},
    KeyCodePair{28, KEY_8},
    KeyCodePair{25, KEY_9},
    KeyCodePair{29, KEY_0},
    // Punctuation. 10 is the key between the left Shift and Z of an ISO keyboard.
    KeyCodePair{50, KEY_GRAVE},
    KeyCodePair{27, KEY_MINUS},
    KeyCodePair{24, KEY_EQUAL},
    KeyCodePair{33, KEY_LEFTBRACE},
    KeyCodePair{30, KEY_RIGHTBRACE},
    KeyCodePair{42, KEY_BACKSLASH},
    KeyCodePair{41, KEY_SEMICOLON},
    KeyCodePair{39, KEY_APOSTROPHE},
    KeyCodePair{43, KEY_COMMA},
    KeyCodePair{47, KEY_DOT},
    KeyCodePair{44, KEY_SLASH},
    KeyCodePair{10, KEY_102ND},
    // Editing. 114 is Help, in the place of Insert; 110 the menu key.
    KeyCodePair{36, KEY_ENTER},
    KeyCodePair{48, KEY_TAB},
    KeyCodePair{49, KEY_SPACE},
    KeyCodePair{51, KEY_BACKSPACE},
    KeyCodePair{53, KEY_ESC},
    KeyCodePair{117, KEY_DELETE},
    KeyCodePair{114, KEY_INSERT},
    KeyCodePair{110, KEY_COMPOSE},
    // Navigation.
    KeyCodePair{115, KEY_HOME},
    KeyCodePair{119, KEY_END},
    KeyCodePair{116, KEY_PAGEUP},
    KeyCodePair{121, KEY_PAGEDOWN},
    KeyCodePair{123, KEY_LEFT},
    KeyCodePair{124, KEY_RIGHT},
    KeyCodePair{125, KEY_DOWN},
    KeyCodePair{126, KEY_UP},
    // Modifiers.
    KeyCodePair{55, KEY_LEFTCTRL},
    KeyCodePair{54, KEY_RIGHTCTRL},
    KeyCodePair{56, KEY_LEFTSHIFT},
    KeyCodePair{60, KEY_RIGHTSHIFT},
    KeyCodePair{58, KEY_LEFTALT},
    KeyCodePair{61, KEY_RIGHTALT},
    KeyCodePair{59, KEY_LEFTMETA},
    KeyCodePair{62, KEY_RIGHTMETA},
    KeyCodePair{57, KEY_CAPSLOCK},
    // Function keys.
    KeyCodePair{122, KEY_F1},
    KeyCodePair{120, KEY_F2},
    KeyCodePair{99, KEY_F3},
    KeyCodePair{118, KEY_F4},
    KeyCodePair{96, KEY_F5},
    KeyCodePair{97, KEY_F6},
    KeyCodePair{98, KEY_F7},
    KeyCodePair{100, KEY_F8},
    KeyCodePair{101, KEY_F9},
    KeyCodePair{109, KEY_F10},
    KeyCodePair{103, KEY_F11},
    KeyCodePair{111, KEY_F12},
    KeyCodePair{105, KEY_F13},
    KeyCodePair{107, KEY_F14},
    KeyCodePair{113, KEY_F15},
    KeyCodePair{106, KEY_F16},
    KeyCodePair{64, KEY_F17},
    KeyCodePair{79, KEY_F18},
    KeyCodePair{80, KEY_F19},
    KeyCodePair{90, KEY_F20},
    // Keypad. Clear is in the place of Num Lock.
    KeyCodePair{82, KEY_KP0},
    KeyCodePair{83, KEY_KP1},
    KeyCodePair{84, KEY_KP2},
    KeyCodePair{85, KEY_KP3},
    KeyCodePair{86, KEY_KP4},
    KeyCodePair{87, KEY_KP5},
    KeyCodePair{88, KEY_KP6},
    KeyCodePair{89, KEY_KP7},
    KeyCodePair{91, KEY_KP8},
    KeyCodePair{92, KEY_KP9},
    KeyCodePair{65, KEY_KPDOT},
    KeyCodePair{69, KEY_KPPLUS},
    KeyCodePair{78, KEY_KPMINUS},
    KeyCodePair{67, KEY_KPASTERISK},
    KeyCodePair{75, KEY_KPSLASH},
    KeyCodePair{81, KEY_KPEQUAL},
    KeyCodePair{76, KEY_KPENTER},
    KeyCodePair{71, KEY_NUMLOCK},
    // Sound.
    KeyCodePair{72, KEY_VOLUMEUP},
    KeyCodePair{73, KEY_VOLUMEDOWN},
    KeyCodePair{74, KEY_MUTE},
};

} // namespace

std::span<const KeyCodePair> keyCodePairs() {
    return table;
}

std::optional<std::uint16_t> evdevCodeForVirtualKeyCode(std::uint16_t virtualKeyCode) {
    const auto* const pair = std::ranges::find(table, virtualKeyCode, &KeyCodePair::virtualKeyCode);
    return pair == table.end() ? std::nullopt : std::optional(pair->evdevCode);
}

std::optional<std::uint16_t> virtualKeyCodeForEvdevCode(std::uint16_t evdevCode) {
    const auto* const pair = std::ranges::find(table, evdevCode, &KeyCodePair::evdevCode);
    return pair == table.end() ? std::nullopt : std::optional(pair->virtualKeyCode);
}

} // namespace brivandel
