#include "widgets/Sheet.h"

#include "widgets/Colors.h"

#include <QEvent>
#include <QPainter>
#include <QShowEvent>

namespace brivandel {

Sheet::Sheet(QWidget* parent) : QDialog(parent, Qt::Sheet | Qt::FramelessWindowHint) {
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
}

void Sheet::hang() {
    const QWidget* window = parentWidget()->window();
    move(window->mapToGlobal(QPoint((window->width() - width()) / 2, 0)));
}

void Sheet::showEvent(QShowEvent* event) {
    if (!event->spontaneous() && parentWidget() != nullptr) {
        parentWidget()->window()->installEventFilter(this);
        hang();
    }
    QDialog::showEvent(event);
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
        hang();
    } else if (event->type() == QEvent::Hide && !event->spontaneous()) {
        // Whoever closes the window gives up what is open in it.
        reject();
    }
    return QDialog::eventFilter(watched, event);
}

void Sheet::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(controlBorderColor(appearanceOf(palette())));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace brivandel
