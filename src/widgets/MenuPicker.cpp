#include "widgets/MenuPicker.h"

#include "widgets/Colors.h"
#include "widgets/Symbol.h"
#include "widgets/TextStyle.h"
#include "widgets/ThemeStyle.h"

#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace brivandel {

namespace {

constexpr int padding = 10;
constexpr int arrowSide = 11;
constexpr int plateHeight = 26;
constexpr int leastWidth = 80;
constexpr int greatestWidth = 280;
constexpr double cornerRadius = 6;

} // namespace

MenuPicker::MenuPicker(const QString& name, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(name);
    setFont(textFont(TextStyle::Body));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void MenuPicker::showValue(const QVariant& value) {
    setCurrentIndex(findData(value));
}

QSize MenuPicker::sizeHint() const {
    int width = 0;
    for (int index = 0; index < count(); ++index) {
        width = std::max(width, fontMetrics().horizontalAdvance(itemText(index)));
    }
    return {std::clamp(width + 3 * padding + arrowSide, leastWidth, greatestWidth), plateHeight};
}

QSize MenuPicker::minimumSizeHint() const {
    return {leastWidth, plateHeight};
}

void MenuPicker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void MenuPicker::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Appearance appearance = appearanceOf(palette());
    const QColor plate = palette().button().color();
    painter.setPen(controlBorderColor(appearance));
    painter.setBrush(isEnabled() && underMouse() ? plate.darker(104) : plate);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);

    const QRectF arrow(width() - padding - arrowSide, (height() - arrowSide) / 2.0, arrowSide, arrowSide);
    const QColor ink =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    paintSymbol(painter, QStringLiteral("chevron.up.chevron.down"), arrow, ink);
    painter.setPen(ink);
    const QRectF text(padding, 0, arrow.left() - 2 * padding, height());
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, static_cast<int>(text.width())));
    if (hasFocus()) {
        paintFocusRing(painter, QRectF(rect()), cornerRadius, palette());
    }
}

} // namespace brivandel
