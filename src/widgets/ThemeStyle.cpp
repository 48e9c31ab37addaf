#include "widgets/ThemeStyle.h"

#include "widgets/Colors.h"

#include <QPainter>
#include <QStyleOption>

namespace brivandel {

namespace {

constexpr double fieldCornerRadius = 6;
constexpr double focusRingWidth = 2;
constexpr int scrollThumbLength = 28;

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

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    if (element == CE_Splitter) {
        painter->fillRect(option->rect, separatorColor(appearanceOf(option->palette)));
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (control != CC_ScrollBar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    constexpr int inset = 2;
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (slider == nullptr || slider->maximum <= slider->minimum) {
        return;
    }
    const QRectF thumb = QRectF(subControlRect(control, option, SC_ScrollBarSlider, widget))
                             .adjusted(inset, inset, -inset, -inset);
    const bool isHeld = slider->activeSubControls.testFlag(SC_ScrollBarSlider) &&
                        (slider->state & (State_MouseOver | State_Sunken)) != 0;
    const double radius = qMin(thumb.width(), thumb.height()) / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(
        withOpacity(color(NamedColor::Gray, appearanceOf(option->palette)), isHeld ? 0.85 : 0.55));
    painter->drawRoundedRect(thumb, radius, radius);
    painter->restore();
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl subControl, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || slider == nullptr) {
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    }
    // No arrows: the thumb has the whole length.
    const bool isHorizontal = slider->orientation == Qt::Horizontal;
    const int length = isHorizontal ? slider->rect.width() : slider->rect.height();
    const int range = slider->maximum - slider->minimum;
    int thumb = length;
    if (range > 0) {
        const auto whole = static_cast<qint64>(range) + slider->pageStep;
        thumb = qBound(qMin(scrollThumbLength, length),
                       static_cast<int>(static_cast<qint64>(length) * slider->pageStep / whole), length);
    }
    const int start = sliderPositionFromValue(slider->minimum, slider->maximum, slider->sliderPosition,
                                              length - thumb, slider->upsideDown);
    const auto span = [&](int from, int to) {
        return isHorizontal ? QRect(from, 0, to - from, slider->rect.height())
                            : QRect(0, from, slider->rect.width(), to - from);
    };
    switch (subControl) {
    case SC_ScrollBarSlider:
        return span(start, start + thumb);
    case SC_ScrollBarGroove:
        return span(0, length);
    case SC_ScrollBarSubPage:
        return span(0, start);
    case SC_ScrollBarAddPage:
        return span(start + thumb, length);
    default:
        return {};
    }
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_SmallIconSize:
        return 16;
    case PM_ScrollBarExtent:
        return 11;
    case PM_ScrollBarSliderMin:
        return scrollThumbLength;
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
