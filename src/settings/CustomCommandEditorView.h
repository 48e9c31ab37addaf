#pragma once

#include "commands/CustomCommand.h"
#include "platform/KeyboardLayout.h"
#include "widgets/Sheet.h"

#include <functional>
#include <optional>

class QLayout;

namespace brivandel {

class Button;
class FittingScrollArea;
class KeyCapturePillView;
class LivePhraseAdvice;
class PhraseAdviceLine;
class TextField;
class TriggerTagsGrid;

/// The sheet in which a custom command is made or changed. It hands over the finished command and stores
/// nothing itself.
class CustomCommandEditorView final : public Sheet {
    Q_OBJECT
public:
    using SaveHandler = std::function<void(const CustomCommand&)>;

    /// No existing command: a new one is made. onSave is called once, if at all, and then the sheet closes.
    /// Layout and advice must outlive it.
    CustomCommandEditorView(std::optional<CustomCommand> existingCommand, SaveHandler onSave,
                            const KeyboardLayout& layout, LivePhraseAdvice& advice, QWidget* parent);

private:
    [[nodiscard]] QLayout* makeNameSection();
    [[nodiscard]] QLayout* makeTriggersSection();
    [[nodiscard]] QLayout* makeShortcutSection();
    [[nodiscard]] QLayout* makeButtons();
    void loadExisting();
    void addTrigger();
    void removeTrigger(const QString& phrase);
    void save();
    void showTriggers();
    void showWhetherAddable();

    std::optional<CustomCommand> existingCommand_;
    SaveHandler onSave_;
    QStringList triggers_;
    TextField* name_;
    TextField* newTrigger_;
    Button* add_;
    TriggerTagsGrid* grid_;
    FittingScrollArea* gridArea_;
    PhraseAdviceLine* adviceLine_;
    KeyCapturePillView* pill_;
};

} // namespace brivandel
