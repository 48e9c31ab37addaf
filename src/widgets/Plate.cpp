#include "widgets/Plate.h"

#include <QPainter>

namespace brivandel {

Plate::Plate(NamedColor tint, double opacity, int cornerRadius, QWidget* parent)
    : QWidget(parent)
    , tint_(tint)
    , opacity_(opacity)
    , cornerRadius_(cornerRadius) {}

void Plate::setTint(NamedColor tint, double opacity) {
    tint_ = tint;
    opacity_ = opacity;
    update();
}

void Plate::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withOpacity(color(tint_, appearanceOf(palette())), opacity_));
    painter.drawRoundedRect(QRectF(rect()), cornerRadius_, cornerRadius_);
}

} // namespace brivandel
