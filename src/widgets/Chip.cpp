#include "widgets/Chip.h"

#include "widgets/Button.h"
#include "widgets/Label.h"

#include <QHBoxLayout>

namespace brivandel {

Chip::Chip(const QString& phrase, const ChipLook& look, NamedColor tint, QWidget* parent)
    : Plate(tint, look.tintOpacity, look.cornerRadius, parent)
    , label_(new Label(phrase, TextStyle::Caption))
    , crossSide_(look.crossSide) {
    label_->setFont(look.font);
    label_->setMaximumLines(1);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(look.padding);
    row->setSpacing(4);
    row->addWidget(label_);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QString Chip::phrase() const {
    return label_->text();
}

void Chip::setRemovable(bool removable) {
    if (removable == (cross_ != nullptr)) {
        return;
    }
    if (!removable) {
        // The click on a cross may be what ends the removing.
        cross_->hide();
        cross_->deleteLater();
        cross_ = nullptr;
        return;
    }
    cross_ = Button::withSymbol(QStringLiteral("xmark"), QStringLiteral("Remove %1").arg(phrase()), this);
    cross_->setObjectName(QStringLiteral("remove"));
    cross_->setToolTip(QStringLiteral("Remove")); // a phrase may be as long as a page
    cross_->setSymbolSide(crossSide_);
    cross_->setFixedSize(crossSide_ + 6, crossSide_ + 6);
    layout()->addWidget(cross_);
    cross_->show();
    connect(cross_, &Button::clicked, this, [this] { Q_EMIT removeRequested(phrase()); });
}

} // namespace brivandel
