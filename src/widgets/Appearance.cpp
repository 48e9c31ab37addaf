#include "widgets/Appearance.h"

#include "widgets/Colors.h"

namespace brivandel {

Appearance appearanceOf(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128 ? Appearance::Dark : Appearance::Light;
}

QPalette paletteFor(Appearance appearance) {
    const bool dark = appearance == Appearance::Dark;
    const QColor text = color(NamedColor::Primary, appearance);
    const QColor quiet = color(NamedColor::Secondary, appearance);
    const QColor window = dark ? QColor(0x1f, 0x1f, 0x22) : QColor(0xf6, 0xf6, 0xf8);
    const QColor button = dark ? QColor(0x3a, 0x3a, 0x3f) : QColor(0xff, 0xff, 0xff);
    const QColor highlight = fillColor(NamedColor::Accent, appearance);

    QPalette palette(text, button, button.lighter(120), button.darker(160), button.darker(120), text,
                     Qt::white, dark ? QColor(0x29, 0x29, 0x2d) : QColor(Qt::white), window);
    palette.setColor(QPalette::AlternateBase, dark ? QColor(0x2d, 0x2d, 0x31) : QColor(0xf0, 0xf0, 0xf3));
    palette.setColor(QPalette::PlaceholderText, quiet);
    palette.setColor(QPalette::ToolTipBase, dark ? QColor(0x3a, 0x3a, 0x3f) : QColor(0xfa, 0xfa, 0xfb));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, color(NamedColor::Blue, appearance));
    palette.setColor(QPalette::LinkVisited, color(NamedColor::Purple, appearance));
    const QColor faint = withOpacity(text, 0.38);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

} // namespace brivandel
