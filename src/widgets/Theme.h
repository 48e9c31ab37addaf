#pragma once

#include "widgets/Appearance.h"

class QApplication;

namespace brivandel {

/// Gives the whole program its style, palette and font. Called again when the desktop's appearance changes:
/// every widget is told by Qt and repaints.
void applyTheme(QApplication& application, Appearance appearance);

/// The space around the contents of a window and between two controls, in device-independent pixels.
inline constexpr int defaultPadding = 16;
inline constexpr int defaultSpacing = 8;

} // namespace brivandel
