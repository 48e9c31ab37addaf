#include "settings/CustomCommandEditorView.h"

#include "settings/KeyCapturePillView.h"
#include "settings/PhraseAdviceLine.h"
#include "settings/TriggerPhrase.h"
#include "settings/TriggerTagsGrid.h"
#include "widgets/Alert.h"
#include "widgets/Button.h"
#include "widgets/Divider.h"
#include "widgets/FittingScrollArea.h"
#include "widgets/Label.h"
#include "widgets/TextField.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <utility>

namespace brivandel {

namespace {

constexpr QSize sheetSize(440, 480);
constexpr int padding = 24;
constexpr int spacing = 20;
constexpr int sectionSpacing = 6;

QVBoxLayout* makeSection(const QString& title, const QString& hint = {}) {
    auto* section = new QVBoxLayout;
    section->setSpacing(sectionSpacing);
    section->addWidget(new Label(title, TextStyle::Caption, NamedColor::Secondary));
    if (!hint.isEmpty()) {
        section->addWidget(new Label(hint, TextStyle::Caption2, NamedColor::Secondary));
    }
    return section;
}

ChipLook chipLook() {
    return {.font = monospacedFont(11, QFont::Normal),
            .padding = QMargins(8, 4, 8, 4),
            .cornerRadius = 12,
            .tintOpacity = 0.15,
            .crossSide = 9};
}

} // namespace

CustomCommandEditorView::CustomCommandEditorView(std::optional<CustomCommand> existingCommand,
                                                 SaveHandler onSave, const KeyboardLayout& layout,
                                                 LivePhraseAdvice& advice, QWidget* parent)
    : Sheet(parent)
    , existingCommand_(std::move(existingCommand))
    , onSave_(std::move(onSave))
    , name_(new TextField(QStringLiteral("e.g. Toggle Mixer"), QStringLiteral("Command Name")))
    , newTrigger_(new TextField(QStringLiteral("Add phrase..."), QStringLiteral("New trigger phrase")))
    , add_(new Button(QStringLiteral("Add"), ButtonStyle::Bordered))
    , grid_(new TriggerTagsGrid(chipLook(), {.minimumWidth = 80, .spacing = 6}))
    , gridArea_(new FittingScrollArea(grid_))
    , adviceLine_(new PhraseAdviceLine(advice, *newTrigger_,
                                       existingCommand_ ? existingCommand_->id : QUuid(),
                                       [this] { return triggers_; }))
    , pill_(new KeyCapturePillView(layout)) {
    setFixedSize(sheetSize);
    const QString title =
        existingCommand_ ? QStringLiteral("Edit Command") : QStringLiteral("New Custom Command");
    setWindowTitle(title);
    name_->setObjectName(QStringLiteral("name"));
    newTrigger_->setObjectName(QStringLiteral("newTrigger"));
    add_->setObjectName(QStringLiteral("add"));
    pill_->setObjectName(QStringLiteral("shortcut"));

    auto* heading = new Label(title);
    heading->setObjectName(QStringLiteral("title"));
    heading->setFont(textFont(TextStyle::Title2, QFont::Bold));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(spacing);
    column->addWidget(heading);
    column->addWidget(new Divider);
    column->addLayout(makeNameSection());
    column->addLayout(makeTriggersSection());
    column->addLayout(makeShortcutSection());
    column->addStretch();
    column->addWidget(new Divider);
    column->addLayout(makeButtons());

    loadExisting();
    name_->setFocus();
}

QLayout* CustomCommandEditorView::makeNameSection() {
    auto* section = makeSection(QStringLiteral("Command Name"));
    section->addWidget(name_);
    return section;
}

QLayout* CustomCommandEditorView::makeTriggersSection() {
    auto* section = makeSection(QStringLiteral("Trigger Phrases"),
                                QStringLiteral("What you say after the wake word to activate this command"));
    section->addWidget(gridArea_);
    auto* row = new QHBoxLayout;
    row->addWidget(newTrigger_);
    row->addWidget(add_);
    section->addLayout(row);
    section->addWidget(adviceLine_);
    connect(grid_, &TriggerTagsGrid::removeRequested, this, &CustomCommandEditorView::removeTrigger);
    connect(newTrigger_, &TextField::textChanged, this, &CustomCommandEditorView::showWhetherAddable);
    connect(newTrigger_, &TextField::submitted, this, &CustomCommandEditorView::addTrigger);
    connect(add_, &Button::clicked, this, &CustomCommandEditorView::addTrigger);
    showWhetherAddable();
    return section;
}

QLayout* CustomCommandEditorView::makeShortcutSection() {
    auto* section =
        makeSection(QStringLiteral("Keyboard Shortcut"),
                    QStringLiteral("The key combination sent to Logic Pro when this command fires"));
    section->addWidget(pill_, 0, Qt::AlignLeft);
    return section;
}

QLayout* CustomCommandEditorView::makeButtons() {
    auto* cancel = new Button(QStringLiteral("Cancel"), ButtonStyle::Bordered);
    cancel->setObjectName(QStringLiteral("cancel"));
    auto* saving = new Button(QStringLiteral("Save"), ButtonStyle::Prominent);
    saving->setObjectName(QStringLiteral("save"));
    saving->setDefault(true);
    connect(cancel, &Button::clicked, this, &CustomCommandEditorView::reject);
    connect(saving, &Button::clicked, this, &CustomCommandEditorView::save);
    auto* row = new QHBoxLayout;
    row->addWidget(cancel);
    row->addStretch();
    row->addWidget(saving);
    return row;
}

void CustomCommandEditorView::loadExisting() {
    if (existingCommand_) {
        name_->setText(existingCommand_->name);
        triggers_ = existingCommand_->triggers;
        pill_->setCapturedKey(existingCommand_->capturedKey);
    }
    showTriggers();
}

void CustomCommandEditorView::addTrigger() {
    const QString phrase = triggerPhrase(newTrigger_->text());
    // A phrase that is there already stays in the field, so that the user sees that nothing was added.
    if (phrase.isEmpty() || triggers_.contains(phrase)) {
        return;
    }
    triggers_ += phrase;
    newTrigger_->clear();
    showTriggers();
    gridArea_->revealEnd();
}

void CustomCommandEditorView::removeTrigger(const QString& phrase) {
    triggers_.removeAll(phrase);
    showTriggers();
}

void CustomCommandEditorView::save() {
    if (triggers_.isEmpty()) {
        (new Alert(QStringLiteral("No trigger phrase"),
                   QStringLiteral("Please add at least one trigger phrase."), this))
            ->open();
        return;
    }
    if (!pill_->capturedKey()) {
        (new Alert(QStringLiteral("No keyboard shortcut"),
                   QStringLiteral("Please capture a keyboard shortcut for this command."), this))
            ->open();
        return;
    }
    const QString name = trimmedOfSpaces(name_->text());
    const CustomCommand command{
        .id = existingCommand_ ? existingCommand_->id : QUuid::createUuid(),
        .name = name.isEmpty() ? triggers_.first() : name,
        .triggers = triggers_,
        .capturedKey = *pill_->capturedKey(),
        .isEnabled = !existingCommand_ || existingCommand_->isEnabled,
    };
    onSave_(command);
    accept();
}

void CustomCommandEditorView::showTriggers() {
    grid_->setTriggers(triggers_);
    gridArea_->setHidden(triggers_.isEmpty());
    gridArea_->updateGeometry();
    adviceLine_->refresh();
}

void CustomCommandEditorView::showWhetherAddable() {
    add_->setEnabled(!trimmedOfSpaces(newTrigger_->text()).isEmpty());
}

} // namespace brivandel
