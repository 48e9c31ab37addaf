#pragma once

#include "commands/CapturedKey.h"
#include "platform/KeyboardLayout.h"

#include <QWidget>

#include <cstdint>
#include <optional>

namespace brivandel {

class KeyCaptureWidget;
class PillButton;

/// Shows a shortcut and records another one: a click starts waiting for a key, a second click gives up.
class KeyCapturePillView final : public QWidget {
    Q_OBJECT
public:
    /// The layout must outlive it.
    explicit KeyCapturePillView(const KeyboardLayout& layout, QWidget* parent = nullptr);
    ~KeyCapturePillView() override;

    [[nodiscard]] const std::optional<CapturedKey>& capturedKey() const { return capturedKey_; }
    void setCapturedKey(const std::optional<CapturedKey>& key);
    [[nodiscard]] bool isCapturing() const;

Q_SIGNALS:
    /// A key was captured; not when one was set from outside.
    void keyCaptured();

private:
    void take(std::int64_t keyCode, std::int64_t modifierFlags);
    void showContent();

    const KeyboardLayout& layout_;
    std::optional<CapturedKey> capturedKey_;
    KeyCaptureWidget* capture_;
    PillButton* button_;
};

} // namespace brivandel
