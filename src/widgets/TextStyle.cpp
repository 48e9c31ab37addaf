#include "widgets/TextStyle.h"

#include <QFontDatabase>
#include <QGuiApplication>

namespace brivandel {

namespace {

int pixelSizeOf(TextStyle style) {
    switch (style) {
    case TextStyle::Title:
        return 22;
    case TextStyle::Title2:
        return 17;
    case TextStyle::Title3:
        return 15;
    case TextStyle::Headline:
    case TextStyle::Body:
    case TextStyle::Monospaced:
        return 13;
    case TextStyle::Callout:
        return 12;
    case TextStyle::Caption:
        return 11;
    case TextStyle::Caption2:
        return 10;
    }
    return 13;
}

} // namespace

QString interfaceFontFamily() {
    const auto inter = QStringLiteral("Inter");
    // Named, since a desktop's default resolves to another face also where Inter is there.
    return QFontDatabase::families().contains(inter)
               ? inter
               : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

QFont textFont(TextStyle style, QFont::Weight weight) {
    return style == TextStyle::Monospaced ? monospacedFont(pixelSizeOf(style), weight)
                                          : interfaceFont(pixelSizeOf(style), weight);
}

QFont textFont(TextStyle style) {
    return textFont(style, style == TextStyle::Headline ? QFont::Bold : QFont::Normal);
}

QFont interfaceFont(int pixelSize, QFont::Weight weight) {
    static const QString family = interfaceFontFamily();
    QFont font(family);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

QFont monospacedFont(int pixelSize, QFont::Weight weight) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

} // namespace brivandel
