#pragma once

#include "widgets/Chip.h"

#include <QStringList>
#include <QWidget>

namespace brivandel {

/// How the chips of a grid stand; lengths in device-independent pixels.
struct TriggerGridColumns {
    int minimumWidth = 80;
    int spacing = 6;
};

/// Trigger phrases as chips, as many in a row as fit. It shows phrases and changes none: what a chip's cross
/// asks for is for others to do.
class TriggerTagsGrid final : public QWidget {
    Q_OBJECT
public:
    TriggerTagsGrid(ChipLook look, const TriggerGridColumns& columns, QWidget* parent = nullptr);

    /// A phrase that was there before keeps its chip, and the keyboard's focus on it.
    void setTriggers(const QStringList& triggers);
    void setTint(NamedColor tint, double opacity);
    /// Whether chips have a cross.
    void setRemovable(bool removable);

Q_SIGNALS:
    void removeRequested(const QString& phrase);

private:
    [[nodiscard]] Chip* makeChip(const QString& phrase);
    void dismiss(Chip* chip);
    void orderFocus();

    ChipLook look_;
    NamedColor tint_ = NamedColor::Blue;
    bool isRemovable_ = true;
    QList<Chip*> chips_;
};

} // namespace brivandel
