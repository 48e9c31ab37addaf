#include "widgets/RowFrame.h"

#include "widgets/Colors.h"
#include "widgets/RecyclingList.h"
#include "widgets/ThemeStyle.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr double cornerRadius = 6;
constexpr double selectedOpacity = 0.2;
constexpr int plateInset = 4;

} // namespace

RowFrame::RowFrame(RecyclingList& list, int kind, QWidget* content, QWidget* parent)
    : QWidget(parent)
    , list_(list)
    , kind_(kind)
    , content_(content) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(content);
}

int RowFrame::heightFor(int width) const {
    const QLayout* whole = layout();
    return whole->hasHeightForWidth() ? whole->totalHeightForWidth(width) : whole->totalSizeHint().height();
}

bool RowFrame::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest && row_ >= 0) {
        list_.rowWantsLayout();
    }
    return QWidget::event(event);
}

void RowFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Appearance appearance = appearanceOf(palette());
    const QRectF plate = QRectF(rect()).adjusted(plateInset, 1, -plateInset, -2);
    if (list_.isSelected(row_)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(withOpacity(color(NamedColor::Accent, appearance), selectedOpacity));
        painter.drawRoundedRect(plate, cornerRadius, cornerRadius);
    }
    if (list_.separators_ == RecyclingList::Separators::BetweenRows && row_ + 1 < list_.rowCount()) {
        painter.fillRect(QRect(0, height() - 1, width(), 1), separatorColor(appearance));
    }
    if (list_.hasFocus() && list_.isSelectable() && list_.currentRow() == row_) {
        paintFocusRing(painter, plate, cornerRadius, palette());
    }
}

} // namespace brivandel
