#pragma once

#include "commands/VoiceCommand.h"
#include "widgets/Plate.h"

#include <QStringList>

namespace brivandel {

class Button;
class LivePhraseAdvice;
class PhraseAdviceLine;
class TextField;
class TriggerTagsGrid;
class ViewRefresh;
class VoiceController;

/// One built-in command with the phrases that trigger it, which can be added to, removed and put back to
/// what they were. Every change is stored at once.
class BuiltInCommandRow final : public Plate {
    Q_OBJECT
public:
    /// Controller and advice must outlive it.
    BuiltInCommandRow(VoiceCommand command, VoiceController& controller, LivePhraseAdvice& advice,
                      QWidget* parent = nullptr);

    [[nodiscard]] VoiceCommand command() const { return command_; }
    /// The phrases in force: the user's own, or the default ones.
    [[nodiscard]] QStringList activeTriggers() const;
    [[nodiscard]] bool isShowingTriggerEditor() const;
    void setIsShowingTriggerEditor(bool showing);

private:
    [[nodiscard]] QWidget* makeHeader();
    [[nodiscard]] QWidget* makeTriggerEditor();
    void addTrigger();
    void removeTrigger(const QString& phrase);
    void resetTriggers();
    void storeTriggers(const QStringList& phrases);
    [[nodiscard]] bool hasOverride() const;
    void showTriggers();
    void showWhetherAddable();

    VoiceCommand command_;
    VoiceController& controller_;
    Button* reset_;
    Button* pencil_;
    TriggerTagsGrid* grid_;
    TextField* newTrigger_;
    Button* add_;
    PhraseAdviceLine* adviceLine_;
    QWidget* editor_;
    ViewRefresh* refresh_;
};

} // namespace brivandel
