#include "widgets/PillButton.h"

#include "widgets/Symbol.h"

#include <QPainter>

namespace brivandel {

namespace {

constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 6;
constexpr int gap = 4;
constexpr double cornerRadius = 8;

} // namespace

PillButton::PillButton(QWidget* parent) : QAbstractButton(parent) {
    // A click leaves the keyboard where it is, as a click on a plain button does.
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void PillButton::setContent(const QString& symbol, const QString& text, const QFont& font, NamedColor fill) {
    symbol_ = symbol;
    fill_ = fill;
    setFont(font);
    setText(text);
    updateGeometry();
    update();
}

QSize PillButton::sizeAround(int textWidth) const {
    const int symbolWidth = symbol_.isEmpty() ? 0 : fontMetrics().height() + gap;
    return {symbolWidth + textWidth + 2 * horizontalPadding, fontMetrics().height() + 2 * verticalPadding};
}

QSize PillButton::sizeHint() const {
    return sizeAround(fontMetrics().horizontalAdvance(text()) + 1);
}

QSize PillButton::minimumSizeHint() const {
    return sizeAround(0);
}

void PillButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor plate = fillColor(fill_, appearanceOf(palette()));
    if (isDown()) {
        plate = plate.darker(125);
    } else if (underMouse()) {
        plate = plate.darker(108);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(plate);
    painter.drawRoundedRect(QRectF(rect()), cornerRadius, cornerRadius);

    double left = horizontalPadding;
    if (!symbol_.isEmpty()) {
        const int side = fontMetrics().height();
        paintSymbol(painter, symbol_, QRectF(left, (height() - side) / 2.0, side, side), Qt::white);
        left += side + gap;
    }
    painter.setPen(Qt::white);
    const QRectF place(left, 0, width() - horizontalPadding - left, height());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, static_cast<int>(place.width())));
    if (hasFocus()) {
        painter.setPen(QPen(Qt::white, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), cornerRadius - 2,
                                cornerRadius - 2);
    }
}

} // namespace brivandel
