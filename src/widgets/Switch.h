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
    /// Shows which way it stands; nobody has switched it.
    void showState(bool on);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has switched it: by a click, a key, or assistive technology, which clicks nothing.
    void switched(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;

private:
    [[nodiscard]] QSize trackSize() const;

    ControlSize size_ = ControlSize::Regular;
};

} // namespace brivandel
