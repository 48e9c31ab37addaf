#include "widgets/Colors.h"

#include <algorithm>
#include <cmath>

namespace brivandel {

namespace {

struct Shades {
    QRgb light;
    QRgb dark;
    QRgb fill;
};

// The system's hues, deepened for light windows and under white text, lifted for dark windows, until the
// contrast holds.
Shades shadesOf(NamedColor name) {
    switch (name) {
    case NamedColor::Primary:
        return {0xff1d1d1f, 0xfff2f2f4, 0xff1d1d1f};
    case NamedColor::Secondary:
        return {0xff5f5f66, 0xffa9a9b1, 0xff6a6a71};
    case NamedColor::White:
        return {0xffffffff, 0xffffffff, 0xffffffff};
    case NamedColor::Gray:
        return {0xff66666b, 0xffa4a4aa, 0xff707076};
    case NamedColor::Red:
        return {0xffc8102e, 0xffff6b63, 0xffd3212f};
    case NamedColor::Orange:
        return {0xffac4b00, 0xffffa53a, 0xffbd5200};
    case NamedColor::Green:
        return {0xff187a35, 0xff3fd767, 0xff1b8139};
    case NamedColor::Accent:
    case NamedColor::Blue:
        return {0xff0060cf, 0xff5aa9ff, 0xff0068dc};
    case NamedColor::Purple:
        return {0xff8440a6, 0xffd08df5, 0xff8c47ae};
    case NamedColor::Pink:
        return {0xffc30f40, 0xffff7391, 0xffcf1547};
    }
    return {};
}

double luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

QColor color(NamedColor name, Appearance appearance) {
    const Shades shades = shadesOf(name);
    return QColor::fromRgba(appearance == Appearance::Dark ? shades.dark : shades.light);
}

QColor fillColor(NamedColor name, Appearance /*appearance*/) {
    return QColor::fromRgba(shadesOf(name).fill);
}

QColor withOpacity(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
    return color;
}

QColor separatorColor(Appearance appearance) {
    return appearance == Appearance::Dark ? QColor(255, 255, 255, 38) : QColor(0, 0, 0, 32);
}

QColor controlBorderColor(Appearance appearance) {
    return appearance == Appearance::Dark ? QColor(255, 255, 255, 112) : QColor(0, 0, 0, 118);
}

double contrastRatio(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace brivandel
