#include "widgets/ThemeStyle.h"

#include "widgets/Colors.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace brivandel {

namespace {

constexpr double fieldCornerRadius = 6;
constexpr double focusRingWidth = 2;

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (element == PE_PanelLineEdit) {
        // Editors inside lists and combo boxes have no frame of their own.
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame != nullptr && frame->lineWidth > 0) {
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            const QRectF rect = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
            painter->setPen(controlBorderColor(appearanceOf(option->palette)));
            painter->setBrush(option->palette.base());
            painter->drawRoundedRect(rect, fieldCornerRadius, fieldCornerRadius);
            if (option->state.testFlag(State_HasFocus)) {
                paintFocusRing(*painter, QRectF(option->rect), fieldCornerRadius, option->palette);
            }
            painter->restore();
            return;
        }
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_SmallIconSize:
        return 16;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_UnderlineShortcut:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

void paintFocusRing(QPainter& painter, const QRectF& rect, double cornerRadius, const QPalette& palette) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(NamedColor::Accent, appearanceOf(palette)), focusRingWidth));
    painter.setBrush(Qt::NoBrush);
    const double inset = focusRingWidth / 2;
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), cornerRadius, cornerRadius);
    painter.restore();
}

} // namespace brivandel
