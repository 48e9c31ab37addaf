#include "widgets/AccessibleGraphic.h"

#include "widgets/PageDots.h"
#include "widgets/StatusDisc.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace brivandel {

namespace {

QAccessibleInterface* makeGraphic(const QString& /*className*/, QObject* object) {
    if (qobject_cast<StatusDisc*>(object) == nullptr && qobject_cast<PageDots*>(object) == nullptr) {
        return nullptr;
    }
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Graphic); // Qt's cache owns it
}

} // namespace

void installAccessibleGraphics() {
    QAccessible::installFactory(makeGraphic);
}

} // namespace brivandel
