#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace brivandel {

/// Redraws a view once a turn of the event loop, however often that is asked for, and not at all while it is
/// hidden: then it is redrawn when it is shown.
class ViewRefresh final : public QObject {
    Q_OBJECT
public:
    /// Belongs to the view; redraw reads the model and changes what differs.
    ViewRefresh(QWidget& view, std::function<void()> redraw);

    void request();
    /// Redraws at once if that is outstanding, visible or not.
    void flush();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& view_;
    std::function<void()> redraw_;
    bool isDue_ = false;
};

} // namespace brivandel
