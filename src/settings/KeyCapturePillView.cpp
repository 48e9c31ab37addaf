#include "settings/KeyCapturePillView.h"

#include "commands/KeyFunctions.h"
#include "settings/KeyCaptureWidget.h"
#include "widgets/PillButton.h"
#include "widgets/TextStyle.h"

#include <QHBoxLayout>

namespace brivandel {

KeyCapturePillView::KeyCapturePillView(const KeyboardLayout& layout, QWidget* parent)
    : QWidget(parent)
    , layout_(layout)
    , capture_(new KeyCaptureWidget(layout, this))
    , button_(new PillButton(this)) {
    button_->setObjectName(QStringLiteral("pill"));
    button_->setAccessibleDescription(QStringLiteral("Keyboard Shortcut"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(button_);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusProxy(button_);

    connect(button_, &PillButton::clicked, this,
            [this] { capture_->setIsCapturing(!capture_->isCapturing()); });
    connect(capture_, &KeyCaptureWidget::keyCaptured, this, &KeyCapturePillView::take);
    connect(capture_, &KeyCaptureWidget::isCapturingChanged, this, &KeyCapturePillView::showContent);
    connect(capture_, &KeyCaptureWidget::keyboardReleased, this, [this] {
        if (window()->focusWidget() == capture_) {
            button_->setFocus();
        }
    });
    showContent();
}

KeyCapturePillView::~KeyCapturePillView() {
    delete capture_; // while there still is somebody to be told that the capture ends
}

bool KeyCapturePillView::isCapturing() const {
    return capture_->isCapturing();
}

void KeyCapturePillView::setCapturedKey(const std::optional<CapturedKey>& key) {
    capturedKey_ = key;
    showContent();
}

void KeyCapturePillView::take(std::int64_t keyCode, std::int64_t modifierFlags) {
    capturedKey_ = captureKey(keyCode, modifierFlags, layout_);
    capture_->setIsCapturing(false);
    Q_EMIT keyCaptured();
}

void KeyCapturePillView::showContent() {
    const auto keyboard = QStringLiteral("keyboard");
    if (isCapturing()) {
        button_->setContent(keyboard, QStringLiteral("Press a key..."), textFont(TextStyle::Body),
                            NamedColor::Orange);
    } else if (capturedKey_) {
        button_->setContent({}, capturedKey_->displayString, textFont(TextStyle::Monospaced, QFont::DemiBold),
                            NamedColor::Blue);
    } else {
        button_->setContent(keyboard, QStringLiteral("Click to capture"), textFont(TextStyle::Body),
                            NamedColor::Secondary);
    }
}

} // namespace brivandel
