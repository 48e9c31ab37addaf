#include "settings/KeyCaptureWidget.h"

#include "commands/CapturedKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace brivandel {

namespace {

// Command, Shift, Caps Lock, Option, Control, their right-hand twins and the function key.
bool isModifierKey(std::uint16_t keyCode) {
    constexpr std::uint16_t rightCommand = 54;
    constexpr std::uint16_t function = 63;
    return keyCode >= rightCommand && keyCode <= function;
}

std::int64_t modifierFlagsOf(Qt::KeyboardModifiers modifiers) {
    std::int64_t flags = 0;
    const auto add = [&](Qt::KeyboardModifier modifier, ModifierFlag flag) {
        if (modifiers.testFlag(modifier)) {
            flags |= flag;
        }
    };
    add(Qt::ControlModifier, commandModifier);
    add(Qt::MetaModifier, controlModifier);
    add(Qt::AltModifier, optionModifier);
    add(Qt::ShiftModifier, shiftModifier);
    return flags;
}

} // namespace

KeyCaptureWidget::KeyCaptureWidget(const KeyboardLayout& layout, QWidget* parent)
    : QWidget(parent)
    , layout_(layout) {
    setFixedSize(0, 0);
    setFocusPolicy(Qt::NoFocus);
}

KeyCaptureWidget::~KeyCaptureWidget() {
    if (isCapturing_) {
        releaseKeyboard();
    }
}

void KeyCaptureWidget::setIsCapturing(bool capturing) {
    if (isCapturing_ == capturing) {
        return;
    }
    isCapturing_ = capturing;
    if (capturing) {
        heldKeyCode_.reset();
        setFocus();
        grabKeyboard();
        QApplication::instance()->installEventFilter(this);
    } else {
        QApplication::instance()->removeEventFilter(this);
        releaseKeyboard();
    }
    Q_EMIT isCapturingChanged(capturing);
    if (!capturing && !heldKeyCode_) {
        Q_EMIT keyboardReleased();
    }
}

bool KeyCaptureWidget::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Accepted, the key comes as a press and triggers nobody's shortcut.
        event->setAccepted(isCapturing_ || isRepeatOfHeldKey(*static_cast<QKeyEvent*>(event)));
        return true;
    case QEvent::KeyPress:
        // QWidget would take Tab for a step of the focus.
        if (takeKeyPress(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::KeyRelease:
        takeKeyRelease(*static_cast<QKeyEvent*>(event));
        event->accept();
        return true;
    default:
        break;
    }
    return QWidget::event(event);
}

std::optional<std::uint16_t> KeyCaptureWidget::keyCodeOf(const QKeyEvent& event) const {
    return layout_.keyCodeForNativeKey({event.nativeScanCode(), event.nativeVirtualKey()});
}

bool KeyCaptureWidget::isHeldKey(const QKeyEvent& event) const {
    return heldKeyCode_ && heldKeyCode_ == keyCodeOf(event);
}

bool KeyCaptureWidget::takeKeyPress(const QKeyEvent& press) {
    if (isCapturing_) {
        // A key that is still down from before was not pressed for this.
        const auto keyCode = press.isAutoRepeat() ? std::nullopt : keyCodeOf(press);
        if (keyCode && !isModifierKey(*keyCode)) {
            heldKeyCode_ = keyCode;
            Q_EMIT keyCaptured(*keyCode, modifierFlagsOf(press.modifiers()));
        }
        return true;
    }
    if (isRepeatOfHeldKey(press)) {
        return true;
    }
    forgetHeldKey();
    return false;
}

void KeyCaptureWidget::takeKeyRelease(const QKeyEvent& release) {
    if (!isCapturing_ && !release.isAutoRepeat() && isHeldKey(release)) {
        forgetHeldKey();
    }
}

bool KeyCaptureWidget::isRepeatOfHeldKey(const QKeyEvent& event) const {
    return event.isAutoRepeat() && isHeldKey(event);
}

void KeyCaptureWidget::forgetHeldKey() {
    if (heldKeyCode_) {
        heldKeyCode_.reset();
        Q_EMIT keyboardReleased();
    }
}

void KeyCaptureWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    setIsCapturing(false);
    forgetHeldKey();
}

void KeyCaptureWidget::hideEvent(QHideEvent* event) {
    setIsCapturing(false);
    forgetHeldKey();
    QWidget::hideEvent(event);
}

bool KeyCaptureWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        const QPoint place = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
        const QWidget* control = parentWidget();
        if (control == nullptr || !control->rect().contains(control->mapFromGlobal(place))) {
            setIsCapturing(false);
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace brivandel
