#pragma once

#include "platform/linux/keys/KeySender.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>

class QKeyEvent;

namespace brivandel {

/// A key as it arrived in a window.
struct ReceivedKey {
    /// None for a key that macOS has no number for.
    std::optional<std::uint16_t> virtualKeyCode;
    std::uint16_t evdevCode = 0;
    QString symbol; ///< the X key symbol's name
    QString text;
    KeyModifiers modifiers;
    std::chrono::steady_clock::time_point time;

    [[nodiscard]] static ReceivedKey from(const QKeyEvent& event, std::chrono::steady_clock::time_point now);

    /// One line of JSON, with its end.
    [[nodiscard]] QByteArray toJsonLine() const;
    /// For people: "⇧⌘ Z".
    [[nodiscard]] QString label() const;
    [[nodiscard]] bool isModifier() const;
};

} // namespace brivandel
