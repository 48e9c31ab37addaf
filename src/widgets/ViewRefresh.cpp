#include "widgets/ViewRefresh.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

namespace brivandel {

ViewRefresh::ViewRefresh(QWidget& view, std::function<void()> redraw)
    : QObject(&view)
    , view_(view)
    , redraw_(std::move(redraw)) {
    view.installEventFilter(this);
}

void ViewRefresh::request() {
    if (isDue_) {
        return;
    }
    isDue_ = true;
    if (view_.isVisible()) {
        QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
    }
}

void ViewRefresh::flush() {
    if (std::exchange(isDue_, false)) {
        redraw_();
    }
}

bool ViewRefresh::event(QEvent* event) {
    if (event->type() == QEvent::UpdateRequest) {
        // It may have been hidden since; showing it redraws it then.
        if (view_.isVisible()) {
            flush();
        }
        return true;
    }
    return QObject::event(event);
}

bool ViewRefresh::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &view_ && event->type() == QEvent::Show) {
        flush();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace brivandel
