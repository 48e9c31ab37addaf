#pragma once

#include <QWidget>

namespace brivandel {

class Label;
class MenuPicker;
class Switch;
class TextField;
class ViewRefresh;
class VoiceController;

/// The General tab: wake phrase, feedback and what happens when nobody speaks. What is changed here is in
/// force and stored at once.
class GeneralSettingsView final : public QWidget {
    Q_OBJECT
public:
    /// The controller must outlive it.
    explicit GeneralSettingsView(VoiceController& controller, QWidget* parent = nullptr);

private:
    [[nodiscard]] QWidget* makeWakeWordRow();
    void bindControls();
    void followController();
    void showSettings();

    VoiceController& controller_;
    Switch* useWakeWord_;
    TextField* wakeWord_;
    Label* wakeWordHint_;
    QWidget* wakeWordRow_;
    Switch* audioFeedback_;
    MenuPicker* timeout_;
    Switch* idleReminder_;
    Switch* autoDisable_;
    ViewRefresh* refresh_;
};

} // namespace brivandel
