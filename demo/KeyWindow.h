#pragma once

#include "demo/ReceivedKey.h"

#include <QRasterWindow>

#include <deque>
#include <functional>

namespace brivandel {

/// A window that shows the keys it got last, the newest in large type.
class KeyWindow final : public QRasterWindow {
public:
    struct Reports {
        std::function<void(WId)> ready; ///< once, when it is shown and has the keyboard focus
        std::function<void(const ReceivedKey&)> key;
    };

    KeyWindow(const QString& title, Reports reports);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;

private:
    void reportReady();
    void paintKeys(QPainter& painter) const;

    Reports reports_;
    bool wasReady_ = false;
    std::deque<ReceivedKey> keys_; ///< newest first
};

} // namespace brivandel
