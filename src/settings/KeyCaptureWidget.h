#pragma once

#include "platform/KeyboardLayout.h"

#include <QWidget>

#include <cstdint>
#include <optional>

class QKeyEvent;

namespace brivandel {

/// Takes key presses for a shortcut while it captures, before anything else in the program sees them. It has
/// no size and shows nothing: it is the place where the keyboard's focus is meanwhile.
class KeyCaptureWidget final : public QWidget {
    Q_OBJECT
public:
    /// The layout must outlive it.
    explicit KeyCaptureWidget(const KeyboardLayout& layout, QWidget* parent = nullptr);
    ~KeyCaptureWidget() override;

    [[nodiscard]] bool isCapturing() const { return isCapturing_; }
    /// Capturing takes the keyboard, also from the desktop's own shortcuts where the desktop lets it.
    void setIsCapturing(bool capturing);

Q_SIGNALS:
    /// A key that is no modifier was pressed. keyCode is a macOS virtual key code, modifierFlags are the
    /// modifiers held with it. Whoever is told ends the capture.
    void keyCaptured(std::int64_t keyCode, std::int64_t modifierFlags);
    void isCapturingChanged(bool capturing);
    /// The capture is over and so is the key press that it took: the keyboard may go elsewhere.
    void keyboardReleased();

protected:
    bool event(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] std::optional<std::uint16_t> keyCodeOf(const QKeyEvent& event) const;
    [[nodiscard]] bool takeKeyPress(const QKeyEvent& press);
    void takeKeyRelease(const QKeyEvent& release);
    [[nodiscard]] bool isHeldKey(const QKeyEvent& event) const;
    [[nodiscard]] bool isRepeatOfHeldKey(const QKeyEvent& event) const;
    void forgetHeldKey();

    const KeyboardLayout& layout_;
    bool isCapturing_ = false;
    std::optional<std::uint16_t> heldKeyCode_; // of the key taken, until it is let go
};

} // namespace brivandel
