#include "views/ReferenceRows.h"

#include "widgets/Badge.h"
#include "widgets/Button.h"
#include "widgets/Label.h"
#include "widgets/PhraseStrip.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int padding = 10;
constexpr int spacing = 6;
constexpr int cornerRadius = 8;
constexpr double plateOpacity = 0.07;

ChipLook phraseLook() {
    return {.font = monospacedFont(11, QFont::Medium),
            .padding = QMargins(6, 3, 6, 3),
            .cornerRadius = 6,
            .tintOpacity = 0.12};
}

QHBoxLayout* line() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

QVBoxLayout* column(QWidget* parent) {
    auto* stack = new QVBoxLayout(parent);
    stack->setContentsMargins(padding, padding, padding, padding);
    stack->setSpacing(spacing);
    return stack;
}

Label* descriptionLine() {
    auto* label = new Label(QString(), TextStyle::Caption, NamedColor::Secondary);
    label->setWordWrap(true);
    return label;
}

Button* smallSymbol(const char16_t* symbol, const char16_t* purpose) {
    auto* button = Button::withSymbol(QString::fromUtf16(symbol), QString::fromUtf16(purpose));
    button->setSymbolSide(13);
    button->setTint(NamedColor::Secondary);
    return button;
}

} // namespace

NamedColor accentColor(CommandCategory category) {
    switch (category) {
    case CommandCategory::transport:
        return NamedColor::Blue;
    case CommandCategory::recording:
        return NamedColor::Red;
    case CommandCategory::editing:
        return NamedColor::Orange;
    case CommandCategory::looping:
        return NamedColor::Purple;
    case CommandCategory::metronome:
        return NamedColor::Pink;
    case CommandCategory::navigation:
        return NamedColor::Blue;
    }
    return NamedColor::Gray;
}

CommandRow::CommandRow(QWidget* parent)
    : Plate(NamedColor::Secondary, plateOpacity, cornerRadius, parent)
    , triggers_(new PhraseStrip(phraseLook(), NamedColor::Blue))
    , description_(descriptionLine())
    , badge_(new Badge)
    , pencil_(smallSymbol(u"pencil", u"Edit trigger phrases"))
    , copy_(smallSymbol(u"doc.on.doc", u"Copy command")) {
    pencil_->setObjectName(QStringLiteral("pencil"));
    copy_->setObjectName(QStringLiteral("copy"));
    auto* stack = column(this);
    auto* top = line();
    top->addWidget(triggers_, 1);
    top->addWidget(badge_);
    top->addWidget(pencil_);
    top->addWidget(copy_);
    stack->addLayout(top);
    stack->addWidget(description_);
    connect(pencil_, &Button::clicked, this, [this] { Q_EMIT editRequested(command_); });
    connect(copy_, &Button::clicked, this, [this] { Q_EMIT copyRequested(triggers_->phrases().value(0)); });
}

void CommandRow::setCommand(VoiceCommand command, const QStringList& triggers) {
    command_ = command;
    const CommandCategory kind = category(command);
    triggers_->setPhrases(triggers);
    triggers_->setTint(accentColor(kind));
    description_->setText(description(command));
    badge_->setBadge(rawValue(kind).toUpper(), accentColor(kind));
    pencil_->setAccessibleDescription(description(command));
    copy_->setAccessibleDescription(description(command));
    copy_->setEnabled(!triggers.isEmpty());
}

BarNavCommandRow::BarNavCommandRow(QWidget* parent)
    : Plate(NamedColor::Secondary, plateOpacity, cornerRadius, parent)
    , phrase_(new Label(QString(), TextStyle::Monospaced))
    , description_(descriptionLine()) {
    phrase_->setFont(monospacedFont(12, QFont::DemiBold));
    auto* stack = column(this);
    auto* top = line();
    top->addWidget(phrase_, 1);
    auto* badge = new Badge;
    badge->setBadge(QStringLiteral("NAVIGATION"), accentColor(CommandCategory::navigation));
    top->addWidget(badge);
    stack->addLayout(top);
    stack->addWidget(description_);
}

void BarNavCommandRow::setForm(const BarNavigationForm& form) {
    phrase_->setText(form.phrase);
    description_->setText(form.description);
}

CustomCommandReferenceRow::CustomCommandReferenceRow(QWidget* parent)
    : Plate(NamedColor::Secondary, plateOpacity, cornerRadius, parent)
    , name_(new Label(QString()))
    , triggers_(new PhraseStrip(phraseLook(), NamedColor::Blue))
    , shortcut_(new Label(QString(), TextStyle::Monospaced))
    , custom_(new Badge)
    , disabled_(new Badge)
    , pencil_(smallSymbol(u"pencil", u"Edit command"))
    , toggle_(new Button(QStringLiteral("Show AppleScript"), ButtonStyle::Borderless))
    , scriptBox_(new Plate(NamedColor::Secondary, 0.1, 6))
    , scriptText_(new Label(QString(), TextStyle::Monospaced)) {
    name_->setFont(textFont(TextStyle::Body, QFont::DemiBold));
    name_->setMaximumLines(1);
    shortcut_->setFont(textFont(TextStyle::Monospaced, QFont::DemiBold));
    custom_->setBadge(QStringLiteral("CUSTOM"), NamedColor::Green);
    disabled_->setBadge(QStringLiteral("DISABLED"), NamedColor::Gray);
    pencil_->setObjectName(QStringLiteral("pencil"));
    toggle_->setObjectName(QStringLiteral("showAppleScript"));
    toggle_->setCheckable(true);
    toggle_->setFont(textFont(TextStyle::Caption, QFont::Medium));
    toggle_->setTint(NamedColor::Blue);
    scriptBox_->setObjectName(QStringLiteral("scriptBox"));
    scriptText_->setObjectName(QStringLiteral("script"));
    scriptText_->setFont(monospacedFont(11, QFont::Normal));
    scriptText_->setWordWrap(true);
    scriptText_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* stack = column(this);
    auto* top = line();
    top->addWidget(name_, 1);
    top->addWidget(disabled_);
    top->addWidget(custom_);
    top->addWidget(pencil_);
    stack->addLayout(top);
    auto* middle = line();
    middle->addWidget(triggers_, 1);
    middle->addWidget(shortcut_);
    stack->addLayout(middle);
    stack->addWidget(toggle_, 0, Qt::AlignLeft);
    auto* inBox = new QVBoxLayout(scriptBox_);
    inBox->setContentsMargins(8, 8, 8, 8);
    inBox->addWidget(scriptText_);
    stack->addWidget(scriptBox_);
    connect(pencil_, &Button::clicked, this, [this] { Q_EMIT editRequested(id_); });
    connect(toggle_, &Button::toggled, this, [this](bool showing) {
        showScript(showing);
        Q_EMIT showingAppleScriptChanged(id_, showing);
    });
}

void CustomCommandReferenceRow::setCommand(const CustomCommand& command, bool showingAppleScript) {
    id_ = command.id;
    name_->setText(command.name);
    triggers_->setPhrases(command.triggers);
    shortcut_->setText(command.capturedKey.displayString);
    disabled_->setHidden(command.isEnabled);
    script_ = command.capturedKey.appleScript; // the whole of it, as it is sent
    const QSignalBlocker nobodyToggledIt(toggle_);
    toggle_->setChecked(showingAppleScript);
    pencil_->setAccessibleDescription(command.name);
    toggle_->setAccessibleDescription(command.name);
    showScript(showingAppleScript);
}

void CustomCommandReferenceRow::showScript(bool showing) {
    scriptText_->setText(showing ? script_ : QString());
    scriptBox_->setVisible(showing);
}

} // namespace brivandel
