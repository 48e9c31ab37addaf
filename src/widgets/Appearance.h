#pragma once

#include <QPalette>

namespace brivandel {

/// Light or dark, as the desktop asks for it.
enum class Appearance { Light, Dark };

/// What a widget's palette says it is painted in: widgets ask this instead of a global setting, so that one
/// change of the application's palette repaints everything.
[[nodiscard]] Appearance appearanceOf(const QPalette& palette);

/// The palette of the whole program.
[[nodiscard]] QPalette paletteFor(Appearance appearance);

} // namespace brivandel
