#include "widgets/FittingScrollArea.h"

#include <QEvent>
#include <QResizeEvent>
#include <QScrollBar>

namespace brivandel {

namespace {

constexpr int leastHeight = 24;

} // namespace

FittingScrollArea::FittingScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setWidget(content);
}

void FittingScrollArea::revealEnd() {
    // After the layout that the new content has asked for.
    QMetaObject::invokeMethod(
        this, [this] { verticalScrollBar()->setValue(verticalScrollBar()->maximum()); },
        Qt::QueuedConnection);
}

// A layout never makes a widget lower than its height for the width, so this has none and asks again when the
// width is known.
int FittingScrollArea::contentHeight() const {
    return widget()->hasHeightForWidth() ? widget()->heightForWidth(width()) : widget()->sizeHint().height();
}

QSize FittingScrollArea::sizeHint() const {
    return {widget()->sizeHint().width(), contentHeight()};
}

QSize FittingScrollArea::minimumSizeHint() const {
    return {0, qMin(leastHeight, contentHeight())};
}

void FittingScrollArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (event->oldSize().width() != event->size().width()) {
        updateGeometry();
    }
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

} // namespace brivandel
