#pragma once

#include "widgets/Button.h"

#include <QLineEdit>

namespace brivandel {

/// One line to type in. Return is its own where submitting is connected, and the window's default button's
/// otherwise.
class TextField final : public QLineEdit {
    Q_OBJECT
public:
    /// name is what assistive technology calls it.
    TextField(const QString& placeholder, const QString& name, ControlSize size = ControlSize::Regular,
              QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Return or Enter was pressed.
    void submitted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    ControlSize size_;
};

} // namespace brivandel
