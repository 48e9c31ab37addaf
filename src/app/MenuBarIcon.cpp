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
    constexpr int smallestForBoth = 22;
    QPixmap pixmap = canvas(QSize(side, side), 1);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(0, 0, side, side);
    const QColor ink = listening ? QColor(Qt::white) : letters;
    double inset = 0;
    if (listening) {
        paintPlate(painter, whole, side * 0.18);
        inset = side * 0.08;
    }
    const QRectF inner = whole.adjusted(inset, inset, -inset, -inset);
    if (side < smallestForBoth) {
        paintLetters(painter, inner, ink);
        return pixmap;
    }
    const double lettersHeight = inner.height() * 0.42;
    const double gap = side * 0.05;
    paintLetters(painter, QRectF(inner.left(), inner.top(), inner.width(), lettersHeight), ink);
    paintSymbol(painter, microphone,
                QRectF(inner.left(), inner.top() + lettersHeight + gap, inner.width(),
                       inner.height() - lettersHeight - gap),
                ink);
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
