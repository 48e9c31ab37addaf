#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

namespace brivandel {

/// A window of the program around one view. It is made once and kept: closing it hides it, and the view stays
/// as it was left.
class AppWindow final : public QWidget {
    Q_OBJECT
public:
    enum class Resizing { Fixed, Free };

    /// The size is that of the content, in device-independent pixels. Takes the view as its own.
    AppWindow(const QString& title, const QSize& size, Resizing resizing, QWidget* view);

    /// The view that is shown from now on; the one before is deleted.
    void setView(QWidget* view);
    [[nodiscard]] QWidget& view() const { return *view_; }

    /// In the middle of its screen, in front of everything, with the keyboard: wherever the user moved it.
    void present();

private:
    QWidget* view_ = nullptr;
};

} // namespace brivandel
