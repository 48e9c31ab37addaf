#include "platform/linux/keys/X11KeyboardLayout.h"

#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11Keymap.h"

#include <chrono>
#include <utility>

namespace brivandel {

namespace {

/// The main thread asks, and a person has just pressed a key.
constexpr std::chrono::milliseconds patience{500};

// They have virtual key codes, but a keyboard's sound keys are the desktop's.
bool isSoundKey(std::uint16_t keyCode) {
    constexpr std::uint16_t volumeUp = 72;
    constexpr std::uint16_t mute = 74;
    return keyCode >= volumeUp && keyCode <= mute;
}

} // namespace

X11KeyboardLayout::X11KeyboardLayout(QByteArray display) : display_(std::move(display)) {}

std::optional<QString> X11KeyboardLayout::characterForKeyCode(std::uint16_t keyCode) const {
    const auto evdevCode = evdevCodeForVirtualKeyCode(keyCode);
    if (!evdevCode) {
        return std::nullopt;
    }
    const auto deadline = std::chrono::steady_clock::now() + patience;
    auto opened = x11::Connection::open(display_, deadline);
    if (std::holds_alternative<KeyFailure>(opened)) {
        return std::nullopt;
    }
    const auto connection = std::get<std::unique_ptr<x11::Connection>>(std::move(opened));
    const x11::Connection::Bound bound(*connection, deadline);
    const auto keymap = x11::Keymap::read(*connection);
    return keymap ? keymap->nameOfKey(static_cast<xcb_keycode_t>(*evdevCode + xKeyCodeOffset)) : std::nullopt;
}

std::optional<std::uint16_t> X11KeyboardLayout::keyCodeForNativeKey(NativeKey key) const {
    constexpr std::uint32_t lastScanCode = 255;
    if (key.scanCode < xKeyCodeOffset || key.scanCode > lastScanCode) {
        return std::nullopt;
    }
    const auto keyCode =
        virtualKeyCodeForEvdevCode(static_cast<std::uint16_t>(key.scanCode - xKeyCodeOffset));
    return keyCode && isSoundKey(*keyCode) ? std::nullopt : keyCode;
}

} // namespace brivandel
