#pragma once

#include "widgets/Appearance.h"

#include <QColor>

namespace brivandel {

/// The colours that the views name. The hues of text and symbols hold a contrast of 4.5 to 1 against the
/// window in both appearances.
enum class NamedColor {
    Primary,
    Secondary,
    Accent,
    White,
    Gray,
    Red,
    Orange,
    Green,
    Blue,
    Purple,
    Pink,
};

/// For text, symbols and lines on the window.
[[nodiscard]] QColor color(NamedColor name, Appearance appearance);

/// For plates under white text and symbols: holds a contrast of 4.5 to 1 against white.
[[nodiscard]] QColor fillColor(NamedColor name, Appearance appearance);

/// The same hue, seen through: opacity is from 0 to 1.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

/// Lines between things and around controls.
[[nodiscard]] QColor separatorColor(Appearance appearance);
[[nodiscard]] QColor controlBorderColor(Appearance appearance);

/// How far two opaque colours stand apart, from 1 to 21 (WCAG 2.1, contrast ratio).
[[nodiscard]] double contrastRatio(const QColor& one, const QColor& other);

} // namespace brivandel
