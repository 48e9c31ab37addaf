#pragma once

#include <QList>

class QWidget;

namespace brivandel {

/// Lets Tab go through the controls in this order, at the place of the widget that holds them: Qt appends
/// what is made later at the end of the window.
void orderFocusInside(QWidget& holder, const QList<QWidget*>& controls);

} // namespace brivandel
