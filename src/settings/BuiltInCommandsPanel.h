#pragma once

#include "commands/CommandCategory.h"
#include "commands/VoiceCommand.h"
#include "settings/BuiltInCommandRow.h"

#include <QList>
#include <QPointer>
#include <QSplitter>

class QScrollArea;
class QVBoxLayout;

namespace brivandel {

class ChoiceList;
class LivePhraseAdvice;
class VoiceController;

/// The categories beside the built-in commands of the chosen one.
class BuiltInCommandsPanel final : public QSplitter {
    Q_OBJECT
public:
    /// Controller and advice must outlive it.
    BuiltInCommandsPanel(VoiceController& controller, LivePhraseAdvice& advice, QWidget* parent = nullptr);

    [[nodiscard]] CommandCategory selectedCategory() const;
    void setSelectedCategory(CommandCategory category);
    /// Shows the command with its trigger editor open.
    void editTriggers(VoiceCommand command);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showCategory();
    void reveal();

    VoiceController& controller_;
    LivePhraseAdvice& advice_;
    ChoiceList* categories_;
    QScrollArea* commands_;
    QVBoxLayout* column_;
    QList<BuiltInCommandRow*> rows_;
    QPointer<BuiltInCommandRow> revealing_;
};

} // namespace brivandel
