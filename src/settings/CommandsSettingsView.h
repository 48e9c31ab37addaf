#pragma once

#include "commands/CustomCommand.h"
#include "commands/VoiceCommand.h"
#include "platform/KeyboardLayout.h"

#include <QUuid>
#include <QWidget>

#include <optional>

class QStackedWidget;

namespace brivandel {

class BuiltInCommandsPanel;
class CustomCommandsPanel;
class LivePhraseAdvice;
class SegmentedPicker;
class VoiceController;

/// The Commands tab: the trigger phrases of the built-in commands, and the user's own commands.
class CommandsSettingsView final : public QWidget {
    Q_OBJECT
public:
    enum class CommandPanel { builtIn, custom };

    /// All three must outlive it.
    CommandsSettingsView(VoiceController& controller, const KeyboardLayout& layout, LivePhraseAdvice& advice,
                         QWidget* parent = nullptr);

    [[nodiscard]] CommandPanel panel() const;
    void setPanel(CommandPanel panel);
    /// Goes to the command's triggers, ready to add one.
    void editTriggers(VoiceCommand command);
    /// Goes to the command and opens its editor; only to the panel when there is no such command.
    void editCustomCommand(const QUuid& id);

private:
    void showEditor(const std::optional<CustomCommand>& editedCommand);
    void save(const CustomCommand& command);

    VoiceController& controller_;
    const KeyboardLayout& layout_;
    LivePhraseAdvice& advice_;
    SegmentedPicker* picker_;
    QStackedWidget* panels_;
    BuiltInCommandsPanel* builtIn_;
    CustomCommandsPanel* custom_;
};

} // namespace brivandel
