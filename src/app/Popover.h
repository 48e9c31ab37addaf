#pragma once

#include "platform/Desktop.h"
#include "platform/MainQueue.h"

#include <QRect>
#include <QWidget>

#include <memory>
#include <optional>

namespace brivandel {

/// A small window under the status item that closes when the user turns to something else: a press outside
/// it, Escape, or, where presses are not known, the loss of the keyboard.
class Popover final : public QWidget {
    Q_OBJECT
public:
    /// Shows the content, which becomes its own. The presses and the queue must outlive it.
    Popover(QWidget* content, PointerPresses& presses, MainQueue& mainQueue);
    ~Popover() override;

    /// Beside the anchor, in global coordinates: below it where there is room, else above; on the screen.
    void showBeside(const QRect& anchor);

    /// A press there belongs to the status item and closes nothing. An empty rectangle: the place of the item
    /// is not known, and keepOpen() may come a moment after a press of it.
    void setItemPlace(const QRect& place);
    /// The press before was on the status item.
    void keepOpen();
    /// A press has closed it a moment ago: maybe the one on a menu item that is about it.
    [[nodiscard]] bool wasJustPressedAway() const;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void pressed(QPoint physicalPlace);
    void place();

    PointerPresses& presses_;
    MainQueue& mainQueue_;
    QRect anchor_;
    QRect itemPlace_;
    std::unique_ptr<Timer> closing_;
    std::optional<MainQueue::TimePoint> pressedAway_;
};

} // namespace brivandel
