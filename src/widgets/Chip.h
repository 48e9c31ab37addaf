#pragma once

#include "widgets/Plate.h"

#include <QFont>
#include <QMargins>
#include <QString>

namespace brivandel {

class Button;
class Label;

/// How a chip looks; lengths in device-independent pixels.
struct ChipLook {
    QFont font;
    QMargins padding;
    int cornerRadius = 0;
    double tintOpacity = 0;
    int crossSide = 9;
};

/// A phrase on a small plate, on one line, with a cross that removes it where that is offered.
class Chip final : public Plate {
    Q_OBJECT
public:
    Chip(const QString& phrase, const ChipLook& look, NamedColor tint, QWidget* parent = nullptr);

    [[nodiscard]] QString phrase() const;
    void setRemovable(bool removable);

Q_SIGNALS:
    void removeRequested(const QString& phrase);

private:
    Label* label_;
    Button* cross_ = nullptr;
    int crossSide_;
};

} // namespace brivandel
