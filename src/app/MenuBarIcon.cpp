#include "app/MenuBarIcon.h"

#include "widgets/Colors.h"
#include "widgets/Symbol.h"
#include "widgets/TextStyle.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace brivandel {

namespace {

constexpr QSize menuBarSize(36, 22);
const auto lettersText = QStringLiteral("BV");
const auto microphone = QStringLiteral("mic.fill");

QPixmap canvas(const QSize& size, double devicePixelRatio) {
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

void paintPlate(QPainter& painter, const QRectF& rect, double cornerRadius) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(fillColor(NamedColor::Green, Appearance::Light));
    painter.drawRoundedRect(rect, cornerRadius, cornerRadius);
}

// Letters without the empty space that a font keeps above and below them.
void paintLetters(QPainter& painter, const QRectF& rect, const QColor& ink) {
    QFont font = interfaceFont(100, QFont::Black);
    const QRectF bounds = QFontMetricsF(font).tightBoundingRect(lettersText);
    const double factor = std::min(rect.width() / bounds.width(), rect.height() / bounds.height());
    font.setPixelSize(std::max(1, static_cast<int>(100 * factor)));
    const QRectF drawn = QFontMetricsF(font).tightBoundingRect(lettersText);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(rect.center() - drawn.center(), lettersText);
}

// The letters above the microphone, or alone where there is no room for both.
void paintLettersAndMicrophone(QPainter& painter, const QRectF& rect, const QColor& ink) {
    constexpr double smallestForBoth = 18;
    if (rect.height() < smallestForBoth) {
        paintLetters(painter, rect, ink);
        return;
    }
    const double lettersHeight = rect.height() * 0.42;
    const double gap = rect.height() * 0.06;
    paintLetters(painter, QRectF(rect.left(), rect.top(), rect.width(), lettersHeight), ink);
    paintSymbol(painter, microphone, rect.adjusted(0, lettersHeight + gap, 0, 0), ink);
}

// A panel's colour is not known, and it tints nothing: an edge of the opposite colour keeps the drawing
// legible on any.
void paintHalo(QPainter& painter, const QPixmap& drawing, double width, const QColor& color) {
    QPixmap shadow = drawing;
    QPainter tint(&shadow);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(shadow.rect(), color);
    tint.end();
    for (const double right : {-width, 0.0, width}) {
        for (const double down : {-width, 0.0, width}) {
            painter.drawPixmap(QPointF(right, down), shadow);
        }
    }
}

} // namespace

QPixmap makeMenuBarIcon(bool listening, const QColor& letters, double devicePixelRatio) {
    QPixmap pixmap = canvas(menuBarSize, devicePixelRatio);
    const QRectF whole(QPointF(0, 0), menuBarSize);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = listening ? QColor(Qt::white) : letters;
    if (listening) {
        paintPlate(painter, whole.adjusted(1, 2, -1, -2), 4);
    }
    const QFont font = interfaceFont(11, QFont::Bold);
    const QFontMetricsF metrics(font);
    const QSizeF text(metrics.horizontalAdvance(lettersText), metrics.height());
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QPointF(3, (whole.height() - text.height()) / 2 + metrics.ascent()), lettersText);
    // Without the symbol the letters stand alone.
    paintSymbol(painter, microphone, QRectF(text.width() + 3 + 2, (whole.height() - 14) / 2, 12, 14), ink);
    return pixmap;
}

QPixmap makeSquareIcon(bool listening, const QColor& letters, int side) {
    QPixmap pixmap = canvas(QSize(side, side), 1);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(0, 0, side, side);
    if (listening) {
        paintPlate(painter, whole, side * 0.18);
        const double inset = side * 0.08;
        paintLettersAndMicrophone(painter, whole.adjusted(inset, inset, -inset, -inset), Qt::white);
        return pixmap;
    }
    const double edge = std::max(1.0, side / 22.0);
    QPixmap glyphs = canvas(pixmap.size(), 1);
    QPainter glyphPainter(&glyphs);
    glyphPainter.setRenderHint(QPainter::Antialiasing);
    paintLettersAndMicrophone(glyphPainter, whole.adjusted(edge, edge, -edge, -edge), letters);
    glyphPainter.end();
    paintHalo(painter, glyphs, edge, letters.lightness() < 128 ? Qt::white : Qt::black);
    painter.drawPixmap(0, 0, glyphs);
    return pixmap;
}

QIcon makeTrayIcon(bool listening, const QColor& letters) {
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        icon.addPixmap(makeSquareIcon(listening, letters, side));
    }
    icon.setIsMask(!listening);
    return icon;
}

} // namespace brivandel
