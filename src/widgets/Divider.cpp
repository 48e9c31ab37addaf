#include "widgets/Divider.h"

#include "widgets/Colors.h"

#include <QPainter>

namespace brivandel {

Divider::Divider(Qt::Orientation orientation, QWidget* parent) : QWidget(parent) {
    if (orientation == Qt::Horizontal) {
        setFixedHeight(1);
    } else {
        setFixedWidth(1);
    }
}

void Divider::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), separatorColor(appearanceOf(palette())));
}

} // namespace brivandel
