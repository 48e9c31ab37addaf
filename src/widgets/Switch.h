#pragma once

#include "widgets/Button.h"

#include <QCheckBox>

namespace brivandel {

/// A check box that looks like a switch: its text, if any, stands at the leading edge and the switch at the
/// trailing one. Give one without text an accessible name.
class Switch final : public QCheckBox {
    Q_OBJECT
public:
    /// Around the switch, for the ring of the keyboard's focus, in device-independent pixels.
    static constexpr int ringSpace = 3;

    explicit Switch(const QString& text = {}, QWidget* parent = nullptr);

    void setControlSize(ControlSize size);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;

private:
    [[nodiscard]] QSize trackSize() const;

    ControlSize size_ = ControlSize::Regular;
};

} // namespace brivandel
