#pragma once

#include "commands/VoiceCommand.h"
#include "platform/KeyboardLayout.h"

#include <QUuid>
#include <QWidget>

class QStackedWidget;

namespace brivandel {

class AudioSettingsView;
class CommandsSettingsView;
class LivePhraseAdvice;
class SymbolTabBar;
class VoiceController;

/// The content of the settings window: four tabs, of one size. What is changed in it is in force and stored
/// at once; there is nothing to apply.
class SettingsView final : public QWidget {
    Q_OBJECT
public:
    enum Tab { General, Commands, Audio, About };

    /// All three must outlive it.
    SettingsView(VoiceController& controller, const KeyboardLayout& layout, LivePhraseAdvice& advice,
                 QWidget* parent = nullptr);

    [[nodiscard]] int selectedTab() const;
    void setSelectedTab(int tab);

public Q_SLOTS:
    void openSettingsCommandsTab();

public:
    /// Goes to the command's triggers, ready to add one.
    void editTriggers(VoiceCommand command);
    /// Goes to the custom command and opens its editor; nothing more than the former when it is gone.
    void editCustomCommand(const QUuid& id);

protected:
    /// Reads anew which inputs there are, each time it is shown.
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    SymbolTabBar* tabs_;
    QStackedWidget* pages_;
    CommandsSettingsView* commands_;
    AudioSettingsView* audio_;
    VoiceController& controller_;
};

} // namespace brivandel
