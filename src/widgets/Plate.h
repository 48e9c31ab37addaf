#pragma once

#include "widgets/Colors.h"

#include <QWidget>

namespace brivandel {

/// A rounded box tinted with a named colour, for what belongs together.
class Plate : public QWidget {
    Q_OBJECT
public:
    /// opacity: of the tint, from 0 to 1; cornerRadius in device-independent pixels.
    Plate(NamedColor tint, double opacity, int cornerRadius, QWidget* parent = nullptr);

    void setTint(NamedColor tint, double opacity);
    [[nodiscard]] NamedColor tint() const { return tint_; }
    [[nodiscard]] double tintOpacity() const { return opacity_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    NamedColor tint_;
    double opacity_;
    int cornerRadius_;
};

} // namespace brivandel
