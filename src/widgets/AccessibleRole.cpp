#include "widgets/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace brivandel {

namespace {

constexpr const char* roleProperty = "accessibleRole";

QAccessibleInterface* makeWithRole(const QString& /*className*/, QObject* object) {
    if (!object->isWidgetType()) {
        return nullptr;
    }
    const QVariant role = object->property(roleProperty);
    return role.isValid() ? new QAccessibleWidget(static_cast<QWidget*>(object),
                                                  static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr; // Qt's cache owns it
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeWithRole);
        return true;
    }();
    static_cast<void>(isInstalled);
    widget.setProperty(roleProperty, static_cast<int>(role));
}

} // namespace brivandel
