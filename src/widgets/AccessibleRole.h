#pragma once

#include <QAccessible>

class QWidget;

namespace brivandel {

/// Tells assistive technology what a widget that paints itself is: a picture, a text, a window. Its name is
/// its accessible name. To be called before anyone asks, so in the widget's constructor. Main thread.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace brivandel
