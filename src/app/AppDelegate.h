#pragma once

#include "app/LaunchRequest.h"
#include "app/TargetWatch.h"
#include "listening/LastFailure.h"
#include "listening/LivePhraseAdvice.h"
#include "listening/SpokenTrial.h"
#include "widgets/Appearance.h"

#include <QColor>
#include <QMenu>
#include <QObject>

#include <memory>
#include <optional>

namespace brivandel {

class AppWindow;
class Popover;
class SettingsView;
class StatusItem;
class Timer;
class VoiceController;
struct Desktop;
struct Platform;

/// The shell: the status item with its menu, the popover, and the windows that the program opens. It takes
/// the listening engine as it is, flips its one switch, and shows which way it stands.
class AppDelegate final : public QObject {
    Q_OBJECT
public:
    /// What the shell stands on must outlive it. lastFailurePath: the file that keeps the last failure over
    /// the end of the program. forcedAppearance: light or dark whatever the desktop says.
    AppDelegate(Platform& platform, Desktop& desktop, VoiceController& voiceController,
                const QString& lastFailurePath, std::optional<Appearance> forcedAppearance = {});
    ~AppDelegate() override;

    /// Once, when the event loop is about to run.
    void applicationDidFinishLaunching();

    /// What another start of the program asks for.
    void handle(LaunchRequest request);

    void toggleListening();
    void togglePopover();
    void openSettings();
    void showCommands();
    /// The walkthrough from its first page.
    void showSetup();

Q_SIGNALS:
    /// The settings window is to show its Commands tab.
    void openSettingsCommandsTab();
    void quitRequested();

private:
    void showWelcomeWindow();
    void present(AppWindow& window) const;
    [[nodiscard]] SettingsView& settingsView();
    void makePopover();
    void setupMenu();
    void updateMenu();
    void updateMenuIcon();
    void updateToolTip();
    void followAppearance();
    void sayThatThereIsNoStatusArea() const;
    [[nodiscard]] QRect popoverAnchor() const;

    Platform& platform_;
    Desktop& desktop_;
    VoiceController& voiceController_;
    LastFailure lastFailure_;
    TargetWatch targetWatch_;
    LivePhraseAdvice phraseAdvice_;
    SpokenTrial spokenTrial_;
    std::optional<Appearance> forcedAppearance_;
    Appearance desktopDefault_; // where the desktop publishes no preference

    QMenu menu_;
    QAction* listeningItem_ = nullptr;
    std::unique_ptr<StatusItem> statusItem_;
    std::unique_ptr<Popover> popover_;
    std::unique_ptr<AppWindow> commandWindow_;
    std::unique_ptr<AppWindow> settingsWindow_;
    std::unique_ptr<AppWindow> welcomeWindow_;
    std::unique_ptr<Timer> statusAreaPatience_;
};

} // namespace brivandel
