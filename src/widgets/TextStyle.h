#pragma once

#include <QFont>
#include <QString>

namespace brivandel {

/// The text styles that the views name, from large to small. Monospaced is the body style in a fixed-width
/// face.
enum class TextStyle { Title, Title2, Title3, Headline, Body, Monospaced, Callout, Caption, Caption2 };

/// The program's face: Inter where it is installed, else the desktop's font.
[[nodiscard]] QString interfaceFontFamily();

/// Sizes are in device-independent pixels. Needs the application object.
[[nodiscard]] QFont textFont(TextStyle style, QFont::Weight weight);
/// In the style's own weight.
[[nodiscard]] QFont textFont(TextStyle style);

/// A font of a size of its own, in the program's face or in the fixed-width one.
[[nodiscard]] QFont interfaceFont(int pixelSize, QFont::Weight weight);
[[nodiscard]] QFont monospacedFont(int pixelSize, QFont::Weight weight);

} // namespace brivandel
