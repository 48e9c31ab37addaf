#include "widgets/SymbolView.h"

#include "widgets/Symbol.h"

#include <QPainter>

#include <utility>

namespace brivandel {

SymbolView::SymbolView(QString name, int side, NamedColor color, QWidget* parent)
    : QWidget(parent)
    , name_(std::move(name))
    , side_(side)
    , color_(color) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SymbolView::setSymbolColor(NamedColor color) {
    if (color_ != color) {
        color_ = color;
        update();
    }
}

QSize SymbolView::sizeHint() const {
    return {side_, side_};
}

void SymbolView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QRectF square(0, 0, side_, side_);
    square.moveCenter(QRectF(rect()).center());
    paintSymbol(painter, name_, square, color(color_, appearanceOf(palette())));
}

} // namespace brivandel
