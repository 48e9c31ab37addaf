#pragma once

#include "widgets/Chip.h"

#include <QStringList>
#include <QWidget>

namespace brivandel {

/// Phrases on small plates in one line, as many as fit; those that do not are counted at the end, and all of
/// them are in the tool tip. It is painted, since long lists have thousands of them.
class PhraseStrip final : public QWidget {
    Q_OBJECT
public:
    PhraseStrip(ChipLook look, NamedColor tint, QWidget* parent = nullptr);

    void setPhrases(const QStringList& phrases);
    void setTint(NamedColor tint);
    [[nodiscard]] const QStringList& phrases() const { return phrases_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int plateWidth(const QString& text) const;
    void paintPlate(QPainter& painter, const QRectF& plate, const QString& text) const;

    ChipLook look_;
    NamedColor tint_;
    QStringList phrases_;
};

} // namespace brivandel
