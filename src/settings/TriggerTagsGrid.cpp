#include "settings/TriggerTagsGrid.h"

#include "widgets/Button.h"
#include "widgets/FlowLayout.h"
#include "widgets/FocusOrder.h"

#include <utility>

namespace brivandel {

TriggerTagsGrid::TriggerTagsGrid(ChipLook look, const TriggerGridColumns& columns, QWidget* parent)
    : QWidget(parent)
    , look_(std::move(look)) {
    setLayout(new FlowLayout(columns.minimumWidth, columns.spacing));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

Chip* TriggerTagsGrid::makeChip(const QString& phrase) {
    auto* chip = new Chip(phrase, look_, tint_, this);
    chip->setRemovable(isRemovable_);
    connect(chip, &Chip::removeRequested, this, &TriggerTagsGrid::removeRequested);
    return chip;
}

void TriggerTagsGrid::setTriggers(const QStringList& triggers) {
    QList<Chip*> old = std::exchange(chips_, {});
    qsizetype kept = 0;
    for (const QString& phrase : triggers) {
        // Phrases come and go one by one: whatever is left of the old ones is in the order of the new.
        qsizetype found = kept;
        while (found < old.size() && old[found]->phrase() != phrase) {
            ++found;
        }
        if (found < old.size()) {
            chips_ += old.takeAt(found);
            kept = found;
        } else {
            chips_ += makeChip(phrase);
        }
    }
    for (Chip* chip : old) {
        dismiss(chip);
    }
    for (Chip* chip : chips_) {
        layout()->removeWidget(chip);
    }
    for (Chip* chip : chips_) {
        layout()->addWidget(chip);
        chip->show();
    }
    orderFocus();
    updateGeometry();
}

void TriggerTagsGrid::orderFocus() {
    QList<QWidget*> crosses;
    for (const Chip* chip : std::as_const(chips_)) {
        if (auto* cross = chip->findChild<Button*>()) {
            crosses += cross;
        }
    }
    orderFocusInside(*this, crosses);
}

void TriggerTagsGrid::dismiss(Chip* chip) {
    layout()->removeWidget(chip);
    // The click on its own cross may be what removes it.
    chip->hide();
    chip->deleteLater();
}

void TriggerTagsGrid::setTint(NamedColor tint, double opacity) {
    tint_ = tint;
    look_.tintOpacity = opacity;
    for (Chip* chip : std::as_const(chips_)) {
        chip->setTint(tint, opacity);
    }
}

void TriggerTagsGrid::setRemovable(bool removable) {
    isRemovable_ = removable;
    for (Chip* chip : std::as_const(chips_)) {
        chip->setRemovable(removable);
    }
    orderFocus();
}

} // namespace brivandel
