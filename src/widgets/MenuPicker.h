#pragma once

#include <QComboBox>

namespace brivandel {

/// One of some choices from a menu that opens on a click. It does not change under a turning wheel, so that
/// scrolling past it changes no setting.
class MenuPicker final : public QComboBox {
    Q_OBJECT
public:
    /// name is what assistive technology calls it.
    explicit MenuPicker(const QString& name, QWidget* parent = nullptr);

    /// Shows the choice that stands for this value; none when no choice does.
    void showValue(const QVariant& value);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brivandel
