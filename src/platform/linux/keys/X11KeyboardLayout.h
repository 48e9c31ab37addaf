#pragma once

#include "platform/KeyboardLayout.h"

#include <QByteArray>

namespace brivandel {

/// The keyboard layout of the X display. It is read anew for every question: a key is named when a person
/// presses it, and the layout may have been switched since the last time. Without a display no key has a
/// name.
class X11KeyboardLayout final : public KeyboardLayout {
public:
    /// display: as in the environment's DISPLAY, which an empty text stands for.
    explicit X11KeyboardLayout(QByteArray display = {});

    [[nodiscard]] std::optional<QString> characterForKeyCode(std::uint16_t keyCode) const override;
    /// scanCode is an X key code.
    [[nodiscard]] std::optional<std::uint16_t> keyCodeForNativeKey(NativeKey key) const override;

private:
    QByteArray display_;
};

} // namespace brivandel
