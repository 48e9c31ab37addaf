#include "widgets/Button.h"

#include "widgets/Symbol.h"
#include "widgets/TextStyle.h"
#include "widgets/ThemeStyle.h"

#include <QPainter>
#include <QTextDocument>

namespace brivandel {

namespace {

constexpr double cornerRadius = 6;
constexpr int gap = 6;

struct Measures {
    int horizontalPadding;
    int height;
};

Measures measuresOf(ControlSize size) {
    switch (size) {
    case ControlSize::Small:
        return {8, 20};
    case ControlSize::Regular:
        return {12, 26};
    case ControlSize::Large:
        return {18, 32};
    }
    return {};
}

} // namespace

Button::Button(const QString& text, ButtonStyle style, QWidget* parent)
    : QPushButton(text, parent)
    , style_(style)
    , tint_(style == ButtonStyle::Borderless ? NamedColor::Primary : NamedColor::Accent) {
    setFont(textFont(TextStyle::Body, style == ButtonStyle::Prominent ? QFont::DemiBold : QFont::Medium));
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

Button* Button::withSymbol(const QString& symbol, const QString& purpose, QWidget* parent) {
    auto* button = new Button(QString(), ButtonStyle::Borderless, parent);
    button->setSymbol(symbol);
    // Tool tips guess whether a text is markup; this one never is.
    button->setToolTip(Qt::mightBeRichText(purpose) ? Qt::convertFromPlainText(purpose) : purpose);
    button->setAccessibleName(purpose);
    return button;
}

void Button::setSymbol(const QString& name) {
    if (symbol_ != name) {
        symbol_ = name;
        updateGeometry();
        update();
    }
}

void Button::setSymbolSide(int side) {
    symbolSide_ = side;
    updateGeometry();
}

void Button::setTint(NamedColor tint) {
    if (tint_ != tint) {
        tint_ = tint;
        update();
    }
}

void Button::setControlSize(ControlSize size) {
    size_ = size;
    updateGeometry();
}

int Button::contentWidth() const {
    const int symbolWidth = symbol_.isEmpty() ? 0 : (symbolSide_ > 0 ? symbolSide_ : fontMetrics().height());
    const int textWidth = text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text()) + 1;
    return symbolWidth + textWidth + (symbolWidth > 0 && textWidth > 0 ? gap : 0);
}

QSize Button::sizeHint() const {
    if (style_ == ButtonStyle::Borderless) {
        const int height = qMax(fontMetrics().height(), symbolSide_) + 6;
        return {qMax(contentWidth() + 8, height), height};
    }
    const Measures measures = measuresOf(size_);
    return {contentWidth() + 2 * measures.horizontalPadding,
            qMax(measures.height, fontMetrics().height() + 6)};
}

QSize Button::minimumSizeHint() const {
    return sizeHint();
}

QColor Button::textColor() const {
    const Appearance appearance = appearanceOf(palette());
    QColor result = style_ == ButtonStyle::Prominent    ? QColor(Qt::white)
                    : style_ == ButtonStyle::Borderless ? color(tint_, appearance)
                                                        : color(NamedColor::Primary, appearance);
    if (!isEnabled()) {
        result.setAlphaF(style_ == ButtonStyle::Prominent ? 0.7F : 0.4F);
    }
    return result;
}

void Button::paintPlate(QPainter& painter) const {
    const Appearance appearance = appearanceOf(palette());
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool lit = isEnabled() && underMouse();
    switch (style_) {
    case ButtonStyle::Prominent: {
        QColor fill = fillColor(tint_, appearance);
        if (!isEnabled()) {
            fill = withOpacity(color(NamedColor::Gray, appearance), 0.5);
        } else if (isDown()) {
            fill = fill.darker(125);
        } else if (lit) {
            fill = fill.darker(108);
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(QRectF(rect()), cornerRadius, cornerRadius);
        break;
    }
    case ButtonStyle::Bordered:
        painter.setPen(controlBorderColor(appearance));
        painter.setBrush(isDown() ? palette().button().color().darker(112)
                         : lit    ? palette().button().color().darker(104)
                                  : palette().button().color());
        painter.drawRoundedRect(plate, cornerRadius, cornerRadius);
        break;
    case ButtonStyle::Borderless:
        if (lit) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(withOpacity(color(NamedColor::Gray, appearance), isDown() ? 0.3 : 0.16));
            painter.drawRoundedRect(QRectF(rect()), cornerRadius, cornerRadius);
        }
        break;
    }
}

void Button::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPlate(painter);

    const QColor ink = textColor();
    double left = (width() - contentWidth()) / 2.0;
    if (!symbol_.isEmpty()) {
        const int side = symbolSide_ > 0 ? symbolSide_ : fontMetrics().height();
        paintSymbol(painter, symbol_, QRectF(left, (height() - side) / 2.0, side, side), ink);
        left += side + gap;
    }
    if (!text().isEmpty()) {
        painter.setPen(ink);
        painter.drawText(QRectF(left, 0, width() - left, height()),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
    }
    if (hasFocus()) {
        // Inside a filled plate the ring would not be seen against its own colour.
        if (style_ == ButtonStyle::Prominent) {
            painter.setPen(QPen(Qt::white, 1.5));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), cornerRadius - 2,
                                    cornerRadius - 2);
        } else {
            paintFocusRing(painter, QRectF(rect()), cornerRadius, palette());
        }
    }
}

} // namespace brivandel
