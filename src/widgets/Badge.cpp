#include "widgets/Badge.h"

#include "widgets/AccessibleRole.h"
#include "widgets/TextStyle.h"

#include <QPainter>

namespace brivandel {

namespace {

constexpr int horizontalPadding = 5;
constexpr int verticalPadding = 2;
constexpr double cornerRadius = 4;
constexpr double plateOpacity = 0.14;

} // namespace

Badge::Badge(QWidget* parent) : QWidget(parent) {
    setAccessibleRole(*this, QAccessible::StaticText);
    setFont(interfaceFont(9, QFont::Bold));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Badge::setBadge(const QString& text, NamedColor tint) {
    text_ = text;
    tint_ = tint;
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize Badge::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text_) + 2 * horizontalPadding,
            fontMetrics().height() + 2 * verticalPadding};
}

void Badge::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = color(tint_, appearanceOf(palette()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(withOpacity(ink, plateOpacity));
    painter.drawRoundedRect(QRectF(rect()), cornerRadius, cornerRadius);
    painter.setPen(ink);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text_);
}

} // namespace brivandel
