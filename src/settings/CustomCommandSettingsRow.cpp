#include "settings/CustomCommandSettingsRow.h"

#include "widgets/Button.h"
#include "widgets/Label.h"
#include "widgets/PhraseStrip.h"
#include "widgets/Plate.h"
#include "widgets/Switch.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int verticalPadding = 4;
constexpr int greatestKeyWidth = 140;
constexpr int keyCornerRadius = 6;
constexpr double keyOpacity = 0.15;

ChipLook phraseLook() {
    return {.font = monospacedFont(10, QFont::Normal),
            .padding = QMargins(5, 2, 5, 2),
            .cornerRadius = 6,
            .tintOpacity = 0.12};
}

} // namespace

CustomCommandSettingsRow::CustomCommandSettingsRow(QWidget* parent)
    : QWidget(parent)
    , enabled_(new Switch)
    , name_(new Label({}))
    , triggers_(new PhraseStrip(phraseLook(), NamedColor::Blue))
    , key_(new Label({}, TextStyle::Monospaced))
    , pencil_(Button::withSymbol(QStringLiteral("pencil"), QStringLiteral("Edit"))) {
    enabled_->setObjectName(QStringLiteral("enabled"));
    enabled_->setControlSize(ControlSize::Small);
    name_->setObjectName(QStringLiteral("name"));
    name_->setFont(textFont(TextStyle::Body, QFont::DemiBold));
    name_->setMaximumLines(1);
    triggers_->setObjectName(QStringLiteral("triggers"));
    key_->setObjectName(QStringLiteral("key"));
    key_->setFont(textFont(TextStyle::Monospaced, QFont::DemiBold));
    key_->setMaximumLines(1);
    key_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    pencil_->setObjectName(QStringLiteral("pencil"));

    auto* plate = new Plate(NamedColor::Secondary, keyOpacity, keyCornerRadius);
    auto* inside = new QHBoxLayout(plate);
    inside->setContentsMargins(8, 4, 8, 4);
    inside->addWidget(key_);
    plate->setMaximumWidth(greatestKeyWidth);
    plate->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(3);
    texts->addWidget(name_);
    texts->addWidget(triggers_);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(defaultPadding - Switch::ringSpace, verticalPadding, defaultPadding,
                            verticalPadding);
    row->setSpacing(defaultSpacing);
    row->addWidget(enabled_);
    row->addLayout(texts, 1);
    row->addWidget(plate);
    row->addWidget(pencil_);

    connect(enabled_, &Switch::switched, this, [this](bool on) { Q_EMIT enabledChanged(id_, on); });
    connect(pencil_, &Button::clicked, this, [this] { Q_EMIT editRequested(id_); });
}

void CustomCommandSettingsRow::setCommand(const CustomCommand& command) {
    id_ = command.id;
    enabled_->showState(command.isEnabled);
    enabled_->setAccessibleName(QStringLiteral("Enable %1").arg(command.name));
    name_->setText(command.name);
    triggers_->setPhrases(command.triggers);
    key_->setText(command.capturedKey.displayString);
    pencil_->setAccessibleName(QStringLiteral("Edit %1").arg(command.name));
}

} // namespace brivandel
