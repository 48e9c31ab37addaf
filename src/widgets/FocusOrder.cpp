#include "widgets/FocusOrder.h"

#include <QWidget>

namespace brivandel {

void orderFocusInside(QWidget& holder, const QList<QWidget*>& controls) {
    // Qt orders only widgets that take the focus, so the chain begins at the last of those before the holder.
    QWidget* previous = &holder;
    while (previous->focusPolicy() == Qt::NoFocus || controls.contains(previous)) {
        previous = previous->previousInFocusChain();
        if (previous == &holder) {
            return;
        }
    }
    for (QWidget* control : controls) {
        QWidget::setTabOrder(previous, control);
        previous = control;
    }
}

} // namespace brivandel
