#pragma once

#include "commands/CommandCategory.h"
#include "commands/VoiceCommand.h"

#include <QList>
#include <QSplitter>

class QScrollArea;
class QVBoxLayout;

namespace brivandel {

class BuiltInCommandRow;
class ChoiceList;
class VoiceController;

/// The categories beside the built-in commands of the chosen one.
class BuiltInCommandsPanel final : public QSplitter {
    Q_OBJECT
public:
    /// The controller must outlive it.
    explicit BuiltInCommandsPanel(VoiceController& controller, QWidget* parent = nullptr);

    [[nodiscard]] CommandCategory selectedCategory() const;
    void setSelectedCategory(CommandCategory category);
    /// Shows the command with its trigger editor open.
    void editTriggers(VoiceCommand command);

private:
    void showCategory();

    VoiceController& controller_;
    ChoiceList* categories_;
    QScrollArea* commands_;
    QVBoxLayout* column_;
    QList<BuiltInCommandRow*> rows_;
};

} // namespace brivandel
