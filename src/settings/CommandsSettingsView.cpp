#include "settings/CommandsSettingsView.h"

#include "listening/VoiceController.h"
#include "settings/BuiltInCommandsPanel.h"
#include "settings/CustomCommandEditorView.h"
#include "settings/CustomCommandsPanel.h"
#include "widgets/Divider.h"
#include "widgets/SegmentedPicker.h"
#include "widgets/Theme.h"

#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace brivandel {

CommandsSettingsView::CommandsSettingsView(VoiceController& controller, const KeyboardLayout& layout,
                                           LivePhraseAdvice& advice, QWidget* parent)
    : QWidget(parent)
    , controller_(controller)
    , layout_(layout)
    , advice_(advice)
    , picker_(new SegmentedPicker({QStringLiteral("Built-in"), QStringLiteral("Custom")}))
    , panels_(new QStackedWidget)
    , builtIn_(new BuiltInCommandsPanel(controller, advice))
    , custom_(new CustomCommandsPanel(controller)) {
    picker_->setObjectName(QStringLiteral("panel"));
    picker_->setAccessibleName(QStringLiteral("Panel"));
    panels_->addWidget(builtIn_);
    panels_->addWidget(custom_);

    auto* header = new QHBoxLayout;
    header->setContentsMargins(defaultPadding, defaultPadding, defaultPadding, defaultPadding);
    header->addWidget(picker_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(header);
    column->addWidget(new Divider);
    column->addWidget(panels_, 1);

    connect(picker_, &SegmentedPicker::currentIndexChanged, panels_, &QStackedWidget::setCurrentIndex);
    connect(custom_, &CustomCommandsPanel::addRequested, this, [this] { showEditor(std::nullopt); });
    connect(custom_, &CustomCommandsPanel::editRequested, this, &CommandsSettingsView::showEditor);
}

CommandsSettingsView::CommandPanel CommandsSettingsView::panel() const {
    return static_cast<CommandPanel>(picker_->currentIndex());
}

void CommandsSettingsView::setPanel(CommandPanel panel) {
    picker_->setCurrentIndex(static_cast<int>(panel));
}

void CommandsSettingsView::editTriggers(VoiceCommand command) {
    setPanel(CommandPanel::builtIn);
    builtIn_->editTriggers(command);
}

void CommandsSettingsView::editCustomCommand(const QUuid& id) {
    setPanel(CommandPanel::custom);
    const auto& commands = controller_.customCommands();
    const auto command = std::ranges::find(commands, id, &CustomCommand::id);
    if (command != commands.end()) {
        custom_->reveal(id);
        showEditor(*command);
    }
}

void CommandsSettingsView::showEditor(const std::optional<CustomCommand>& editedCommand) {
    // One sheet at a time: a request from another window waits for nobody and changes nothing.
    if (findChild<CustomCommandEditorView*>() != nullptr) {
        return;
    }
    auto* editor = new CustomCommandEditorView(
        editedCommand, [this](const CustomCommand& command) { save(command); }, layout_, advice_, this);
    editor->open();
}

void CommandsSettingsView::save(const CustomCommand& command) {
    CustomCommandList commands = controller_.customCommands();
    const auto place = std::ranges::find(commands, command.id, &CustomCommand::id);
    if (place != commands.end()) {
        *place = command;
    } else {
        commands.append(command);
    }
    controller_.setCustomCommands(commands);
    controller_.saveCustomCommands();
}

} // namespace brivandel
