#include "widgets/TextField.h"

#include "widgets/TextStyle.h"

#include <QKeyEvent>
#include <QMetaMethod>

#include <limits>

namespace brivandel {

namespace {

constexpr int leastWidth = 60;

} // namespace

TextField::TextField(const QString& placeholder, const QString& name, ControlSize size, QWidget* parent)
    : QLineEdit(parent)
    , size_(size) {
    setFont(textFont(size == ControlSize::Small ? TextStyle::Caption : TextStyle::Body));
    setPlaceholderText(placeholder);
    setAccessibleName(name);
    setTextMargins(4, 0, 4, 0);
    setMaxLength(std::numeric_limits<int>::max()); // what is shown in it is stored again as a whole
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize TextField::sizeHint() const {
    return {QLineEdit::sizeHint().width(), size_ == ControlSize::Small ? 22 : 26};
}

QSize TextField::minimumSizeHint() const {
    return {leastWidth, sizeHint().height()};
}

void TextField::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && isSignalConnected(QMetaMethod::fromSignal(&TextField::submitted))) {
        event->accept();
        Q_EMIT submitted();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace brivandel
