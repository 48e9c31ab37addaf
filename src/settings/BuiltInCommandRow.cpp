#include "settings/BuiltInCommandRow.h"

#include "engine/TranscriptMatcher.h"
#include "listening/VoiceController.h"
#include "settings/PhraseAdviceLine.h"
#include "settings/TriggerPhrase.h"
#include "settings/TriggerTagsGrid.h"
#include "widgets/Button.h"
#include "widgets/Label.h"
#include "widgets/TextField.h"
#include "widgets/ViewRefresh.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int padding = 10;
constexpr int spacing = 6;
constexpr int cornerRadius = 8;
constexpr double plateOpacity = 0.07;
constexpr double ownPhrasesOpacity = 0.15;
constexpr double defaultPhrasesOpacity = 0.12;

ChipLook chipLook() {
    return {.font = monospacedFont(11, QFont::Normal),
            .padding = QMargins(6, 3, 6, 3),
            .cornerRadius = 8,
            .tintOpacity = defaultPhrasesOpacity,
            .crossSide = 8};
}

} // namespace

BuiltInCommandRow::BuiltInCommandRow(VoiceCommand command, VoiceController& controller,
                                     LivePhraseAdvice& advice, QWidget* parent)
    : Plate(NamedColor::Secondary, plateOpacity, cornerRadius, parent)
    , command_(command)
    , controller_(controller)
    , reset_(new Button(QStringLiteral("Reset"), ButtonStyle::Borderless))
    , pencil_(Button::withSymbol(QStringLiteral("pencil"), QStringLiteral("Edit trigger phrases")))
    , grid_(new TriggerTagsGrid(chipLook(), {.minimumWidth = 80, .spacing = 4}))
    , newTrigger_(new TextField(QStringLiteral("Add trigger..."), QStringLiteral("New trigger phrase"),
                                ControlSize::Small))
    , add_(new Button(QStringLiteral("Add"), ButtonStyle::Bordered))
    , adviceLine_(new PhraseAdviceLine(advice, *newTrigger_, command, [this] { return activeTriggers(); }))
    , editor_(makeTriggerEditor())
    , refresh_(new ViewRefresh(*this, [this] { showTriggers(); })) {
    setObjectName(rawValue(command));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(spacing);
    column->addWidget(makeHeader());
    column->addWidget(grid_);
    column->addWidget(editor_);
    editor_->hide();

    connect(grid_, &TriggerTagsGrid::removeRequested, this, &BuiltInCommandRow::removeTrigger);
    connect(&controller, &VoiceController::builtInTriggerOverridesChanged, refresh_, &ViewRefresh::request);
    showTriggers();
}

QWidget* BuiltInCommandRow::makeHeader() {
    reset_->setObjectName(QStringLiteral("reset"));
    reset_->setFont(textFont(TextStyle::Caption, QFont::Medium));
    reset_->setTint(NamedColor::Orange);
    reset_->setAccessibleDescription(description(command_));
    pencil_->setObjectName(QStringLiteral("pencil"));
    pencil_->setSymbolSide(12);
    pencil_->setTint(NamedColor::Secondary);
    pencil_->setAccessibleDescription(description(command_));
    connect(reset_, &Button::clicked, this, &BuiltInCommandRow::resetTriggers);
    connect(pencil_, &Button::clicked, this,
            [this] { setIsShowingTriggerEditor(!isShowingTriggerEditor()); });

    auto* text = new Label(description(command_), TextStyle::Caption, NamedColor::Secondary);
    text->setMaximumLines(2); // narrower than a long text, so that the buttons stay in sight
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    row->addWidget(text, 1);
    row->addWidget(reset_);
    row->addWidget(pencil_);
    return header;
}

QWidget* BuiltInCommandRow::makeTriggerEditor() {
    newTrigger_->setObjectName(QStringLiteral("newTrigger"));
    newTrigger_->setAccessibleDescription(description(command_));
    add_->setObjectName(QStringLiteral("add"));
    add_->setFont(textFont(TextStyle::Caption, QFont::Medium));
    add_->setControlSize(ControlSize::Small);
    connect(newTrigger_, &TextField::textChanged, this, &BuiltInCommandRow::showWhetherAddable);
    connect(newTrigger_, &TextField::submitted, this, &BuiltInCommandRow::addTrigger);
    connect(add_, &Button::clicked, this, &BuiltInCommandRow::addTrigger);
    showWhetherAddable();

    auto* editor = new QWidget;
    auto* stack = new QVBoxLayout(editor);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(spacing);
    auto* row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addWidget(newTrigger_);
    row->addWidget(add_);
    stack->addLayout(row);
    stack->addWidget(adviceLine_);
    return editor;
}

QStringList BuiltInCommandRow::activeTriggers() const {
    return triggersInForce(command_, controller_.builtInTriggerOverrides());
}

bool BuiltInCommandRow::hasOverride() const {
    return controller_.builtInTriggerOverrides().contains(rawValue(command_));
}

bool BuiltInCommandRow::isShowingTriggerEditor() const {
    return !editor_->isHidden();
}

void BuiltInCommandRow::setIsShowingTriggerEditor(bool showing) {
    editor_->setVisible(showing);
    if (showing) {
        newTrigger_->setFocus();
    }
}

void BuiltInCommandRow::addTrigger() {
    const QString phrase = triggerPhrase(newTrigger_->text());
    const QStringList active = activeTriggers();
    if (phrase.isEmpty() || active.contains(phrase)) {
        return;
    }
    storeTriggers(active + QStringList(phrase));
    newTrigger_->clear();
}

void BuiltInCommandRow::removeTrigger(const QString& phrase) {
    QStringList rest = activeTriggers();
    rest.removeAll(phrase);
    // A command never ends up without a phrase, also where no cross is offered for the last one.
    storeTriggers(rest.isEmpty() ? QStringList(rawValue(command_)) : rest);
}

void BuiltInCommandRow::storeTriggers(const QStringList& phrases) {
    TriggerOverrides overrides = controller_.builtInTriggerOverrides();
    overrides[rawValue(command_)] = phrases;
    controller_.setBuiltInTriggerOverrides(overrides);
    controller_.saveTriggerOverrides();
}

void BuiltInCommandRow::resetTriggers() {
    TriggerOverrides overrides = controller_.builtInTriggerOverrides();
    overrides.remove(rawValue(command_));
    controller_.setBuiltInTriggerOverrides(overrides);
    controller_.saveTriggerOverrides();
}

void BuiltInCommandRow::showTriggers() {
    const QStringList active = activeTriggers();
    reset_->setHidden(!hasOverride());
    grid_->setTint(hasOverride() ? NamedColor::Orange : NamedColor::Blue,
                   hasOverride() ? ownPhrasesOpacity : defaultPhrasesOpacity);
    grid_->setTriggers(active);
    grid_->setRemovable(active.size() >= 2);
}

void BuiltInCommandRow::showWhetherAddable() {
    add_->setEnabled(!trimmedOfSpaces(newTrigger_->text()).isEmpty());
}

} // namespace brivandel
