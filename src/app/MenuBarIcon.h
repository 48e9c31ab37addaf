#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>

namespace brivandel {

/// The status item's picture as a menu bar shows it: the letters "BV" and a microphone, 36 × 22 points; on a
/// green plate in white while listening. letters: the colour while not listening (a menu bar tints black).
[[nodiscard]] QPixmap makeMenuBarIcon(bool listening, const QColor& letters, double devicePixelRatio);

/// The same picture for panels that show square icons: the letters above the microphone, or the letters alone
/// where there is no room for both. While not listening it has an edge that keeps it legible on any panel.
/// side is in pixels.
[[nodiscard]] QPixmap makeSquareIcon(bool listening, const QColor& letters, int side);

/// In the sizes that panels ask for.
[[nodiscard]] QIcon makeTrayIcon(bool listening, const QColor& letters);

} // namespace brivandel
