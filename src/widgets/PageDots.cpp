#include "widgets/PageDots.h"

#include "widgets/AccessibleRole.h"
#include "widgets/Colors.h"

#include <QPainter>

namespace brivandel {

namespace {

constexpr int diameter = 7;
constexpr int gap = 8;
constexpr double otherOpacity = 0.3;

} // namespace

PageDots::PageDots(int pageCount, QWidget* parent) : QWidget(parent), pageCount_(pageCount) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleRole(*this, QAccessible::Graphic);
    setCurrentPage(0);
}

void PageDots::setCurrentPage(int page) {
    current_ = page;
    setAccessibleName(QStringLiteral("Page %1 of %2").arg(page + 1).arg(pageCount_));
    update();
}

QSize PageDots::sizeHint() const {
    return {pageCount_ * diameter + (pageCount_ - 1) * gap, diameter};
}

void PageDots::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const Appearance appearance = appearanceOf(palette());
    for (int page = 0; page < pageCount_; ++page) {
        painter.setBrush(page == current_
                             ? color(NamedColor::Accent, appearance)
                             : withOpacity(color(NamedColor::Secondary, appearance), otherOpacity));
        painter.drawEllipse(QRectF(page * (diameter + gap), 0, diameter, diameter));
    }
}

} // namespace brivandel
