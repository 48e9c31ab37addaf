#pragma once

#include <QProxyStyle>

class QPainter;
class QRectF;

namespace brivandel {

/// Qt's Fusion style with this program's text fields, scroll bars and focus rings.
class ThemeStyle final : public QProxyStyle {
    Q_OBJECT
public:
    ThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl subControl,
                         const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
};

/// The ring that says where the keyboard is, just inside the rectangle.
void paintFocusRing(QPainter& painter, const QRectF& rect, double cornerRadius, const QPalette& palette);

} // namespace brivandel
