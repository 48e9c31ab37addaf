#include "widgets/SymbolTabBar.h"

#include "widgets/Colors.h"
#include "widgets/Symbol.h"
#include "widgets/TextStyle.h"
#include "widgets/ThemeStyle.h"

#include <QHoverEvent>
#include <QPainter>

#include <algorithm>

namespace brivandel {

namespace {

constexpr int symbolSide = 20;
constexpr int verticalPadding = 6;
constexpr int horizontalPadding = 12;
constexpr int gap = 3;
constexpr int leastWidth = 76;
constexpr int space = 2; // around a tab's plate
constexpr double cornerRadius = 7;

} // namespace

SymbolTabBar::SymbolTabBar(QWidget* parent) : QTabBar(parent) {
    setFont(textFont(TextStyle::Caption, QFont::Medium));
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolTabBar::addSymbolTab(const QString& symbol, const QString& title) {
    setTabData(addTab(title), symbol);
}

QSize SymbolTabBar::tabSizeHint(int index) const {
    const int textWidth = fontMetrics().horizontalAdvance(tabText(index));
    return {std::max(textWidth + 2 * horizontalPadding, leastWidth) + 2 * space,
            symbolSide + gap + fontMetrics().height() + 2 * (verticalPadding + space)};
}

bool SymbolTabBar::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        hovered_ = tabAt(static_cast<QHoverEvent*>(event)->position().toPoint());
        update();
        break;
    case QEvent::HoverLeave:
        hovered_ = -1;
        update();
        break;
    default:
        break;
    }
    return QTabBar::event(event);
}

void SymbolTabBar::focusInEvent(QFocusEvent* event) {
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        isByKeyboard_ = true;
    }
    QTabBar::focusInEvent(event);
}

void SymbolTabBar::keyPressEvent(QKeyEvent* event) {
    isByKeyboard_ = true;
    QTabBar::keyPressEvent(event);
    update();
}

void SymbolTabBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Appearance appearance = appearanceOf(palette());
    for (int index = 0; index < count(); ++index) {
        const QRectF plate = QRectF(tabRect(index)).adjusted(space, space, -space, -space);
        const bool isCurrent = index == currentIndex();
        if (isCurrent || index == hovered_) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(withOpacity(color(NamedColor::Gray, appearance), isCurrent ? 0.18 : 0.09));
            painter.drawRoundedRect(plate, cornerRadius, cornerRadius);
        }
        const QColor ink = color(isCurrent ? NamedColor::Accent : NamedColor::Secondary, appearance);
        const QRectF square(plate.center().x() - symbolSide / 2.0, plate.top() + verticalPadding, symbolSide,
                            symbolSide);
        paintSymbol(painter, tabData(index).toString(), square, ink);
        painter.setPen(ink);
        painter.drawText(QRectF(plate.left(), square.bottom() + gap, plate.width(), fontMetrics().height()),
                         Qt::AlignCenter | Qt::TextSingleLine, tabText(index));
        if (isCurrent && hasFocus() && isByKeyboard_) {
            paintFocusRing(painter, plate, cornerRadius, palette());
        }
    }
}

} // namespace brivandel
