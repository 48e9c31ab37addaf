#include "app/AppDelegate.h"

#include "app/AppWindow.h"
#include "app/Popover.h"
#include "app/StatusItem.h"
#include "listening/VoiceController.h"
#include "platform/Desktop.h"
#include "platform/Platform.h"
#include "settings/SettingsView.h"
#include "views/CommandReferenceView.h"
#include "views/QuickControlView.h"
#include "views/WelcomeView.h"
#include "widgets/Colors.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QCursor>
#include <QLocale>

#include <chrono>
#include <utility>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

constexpr int listeningTag = 1;
constexpr QSize commandWindowSize(600, 500);
constexpr QSize settingsWindowSize(500, 500);
constexpr QSize welcomeWindowSize(520, 520);
// A panel that is started together with this program takes a while to come.
constexpr auto patienceForTheStatusArea = 5s;

const auto launchedBeforeKey = QStringLiteral("hasLaunchedBefore");

} // namespace

AppDelegate::AppDelegate(Platform& platform, Desktop& desktop, VoiceController& voiceController,
                         const QString& lastFailurePath, std::optional<Appearance> forcedAppearance)
    : platform_(platform)
    , desktop_(desktop)
    , voiceController_(voiceController)
    , lastFailure_(voiceController, lastFailurePath,
                   [&queue = *platform.mainQueue] {
                       const auto sinceEpoch =
                           std::chrono::floor<std::chrono::milliseconds>(queue.wallTime().time_since_epoch());
                       return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count(), Qt::UTC);
                   })
    , targetWatch_(*platform.mainQueue, *platform.workQueue, *platform.target)
    , phraseAdvice_(voiceController, {*platform.mainQueue, *platform.workQueue, platform.pronunciations})
    , spokenTrial_(voiceController, platform)
    , forcedAppearance_(forcedAppearance)
    , desktopDefault_(appearanceOf(QApplication::palette())) {}

AppDelegate::~AppDelegate() {
    desktop_.appearance->onChange({});
}

void AppDelegate::applicationDidFinishLaunching() {
    desktop_.appearance->onChange([this] { followAppearance(); });
    statusItem_ = std::make_unique<StatusItem>(*desktop_.statusArea);
    followAppearance();
    connect(&voiceController_, &VoiceController::isListeningChanged, this, [this] {
        updateMenuIcon();
        updateMenu();
    });
    connect(&lastFailure_, &LastFailure::changed, this, &AppDelegate::updateToolTip);
    connect(&targetWatch_, &TargetWatch::changed, this, &AppDelegate::updateToolTip);
    targetWatch_.begin();
    makePopover();
    setupMenu();

    const bool hasLaunchedBefore = platform_.defaults->object(launchedBeforeKey).toBool();
    showWelcomeWindow(); // at every launch
    if (!hasLaunchedBefore) {
        platform_.defaults->set(launchedBeforeKey, true);
    }
    statusAreaPatience_ =
        platform_.mainQueue->startTimer(patienceForTheStatusArea, [this] { sayThatThereIsNoStatusArea(); });
}

void AppDelegate::handle(LaunchRequest request) {
    switch (request) {
    case LaunchRequest::None:
        if (!popover_->isVisible()) {
            togglePopover();
        }
        break;
    case LaunchRequest::Popover:
        togglePopover();
        break;
    case LaunchRequest::Toggle:
        toggleListening();
        break;
    case LaunchRequest::Settings:
        openSettings();
        break;
    case LaunchRequest::Commands:
        showCommands();
        break;
    case LaunchRequest::Quit:
        Q_EMIT quitRequested();
        break;
    }
}

void AppDelegate::followAppearance() {
    Appearance appearance = desktopDefault_;
    switch (desktop_.appearance->preference()) {
    case DesktopAppearance::Preference::Dark:
        appearance = Appearance::Dark;
        break;
    case DesktopAppearance::Preference::Light:
        appearance = Appearance::Light;
        break;
    case DesktopAppearance::Preference::None:
        break;
    }
    applyTheme(*qApp, forcedAppearance_.value_or(appearance));
    updateMenuIcon();
}

void AppDelegate::makePopover() {
    popover_ = std::make_unique<Popover>(new QuickControlView(voiceController_), *desktop_.pointerPresses,
                                         *platform_.mainQueue);
    connect(statusItem_.get(), &StatusItem::menuWillOpen, popover_.get(), &Popover::keepOpen);
}

void AppDelegate::setupMenu() {
    menu_.setObjectName(QStringLiteral("menu"));
    const auto add = [this](const QString& title, void (AppDelegate::*action)()) {
        QAction* item = menu_.addAction(title);
        connect(item, &QAction::triggered, this, action);
        return item;
    };
    listeningItem_ = add(QStringLiteral("Enable Voice Control"), &AppDelegate::toggleListening);
    listeningItem_->setData(listeningTag);
    menu_.addSeparator();
    add(QStringLiteral("Settings..."), &AppDelegate::openSettings)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    add(QStringLiteral("Command Reference"), &AppDelegate::showCommands);
    add(QStringLiteral("Setup Instructions"), &AppDelegate::showSetup);
    add(QStringLiteral("Show Status"), &AppDelegate::togglePopover);
    menu_.addSeparator();
    add(QStringLiteral("Quit Brivandel"), &AppDelegate::quitRequested)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    // A panel may show the menu without saying so, and then this comes too late: the title is also kept true
    // when the state changes.
    connect(statusItem_.get(), &StatusItem::menuWillOpen, this, &AppDelegate::updateMenu);
    updateMenu();
    statusItem_->setMenu(&menu_);
}

void AppDelegate::updateMenu() {
    if (listeningItem_ != nullptr) {
        listeningItem_->setText(voiceController_.isListening()
                                    ? QStringLiteral("● Listening — Click to Disable")
                                    : QStringLiteral("Enable Voice Control"));
    }
}

void AppDelegate::updateMenuIcon() {
    statusItem_->setIcon(voiceController_.isListening(), QApplication::palette().color(QPalette::WindowText));
    updateToolTip();
}

void AppDelegate::updateToolTip() {
    QString text = voiceController_.isListening() ? QStringLiteral("Brivandel is listening")
                                                  : QStringLiteral("Brivandel is not listening");
    if (!targetWatch_.sentence().isEmpty()) {
        text += u'\n' + targetWatch_.sentence();
    }
    // The status message of a failure stands only until the next session starts.
    if (const auto& failure = lastFailure_.record()) {
        text +=
            QStringLiteral("\nLast failure, %1: %2")
                .arg(QLocale().toString(failure->when.toLocalTime(), QLocale::ShortFormat), failure->text);
    }
    statusItem_->setToolTip(text);
}

void AppDelegate::toggleListening() {
    voiceController_.setIsListening(!voiceController_.isListening());
    updateMenuIcon();
    updateMenu();
}

QRect AppDelegate::popoverAnchor() const {
    const QRect item = statusItem_->place();
    return item.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : item;
}

void AppDelegate::togglePopover() {
    if (popover_->isVisible()) {
        popover_->close();
        return;
    }
    // A menu that the panel shows: the press on its item was one outside the popover.
    if (statusItem_->place().isEmpty() && popover_->wasJustPressedAway()) {
        return;
    }
    popover_->setItemPlace(statusItem_->place());
    popover_->showBeside(popoverAnchor());
}

SettingsView& AppDelegate::settingsView() {
    if (!settingsWindow_) {
        auto* view = new SettingsView(voiceController_, *platform_.keyboardLayout, phraseAdvice_);
        connect(this, &AppDelegate::openSettingsCommandsTab, view, &SettingsView::openSettingsCommandsTab);
        settingsWindow_ = std::make_unique<AppWindow>(QStringLiteral("Brivandel Settings"),
                                                      settingsWindowSize, AppWindow::Resizing::Fixed, view);
    }
    return static_cast<SettingsView&>(settingsWindow_->view());
}

void AppDelegate::present(AppWindow& window) const {
    window.present();
    desktop_.activation->activate();
}

void AppDelegate::openSettings() {
    static_cast<void>(settingsView());
    present(*settingsWindow_);
}

void AppDelegate::showCommands() {
    if (!commandWindow_) {
        auto* view = new CommandReferenceView(voiceController_, *platform_.mainQueue, spokenTrial_);
        connect(view, &CommandReferenceView::settingsRequested, this, [this] {
            openSettings();
            Q_EMIT openSettingsCommandsTab();
        });
        connect(view, &CommandReferenceView::editTriggersRequested, this, [this](VoiceCommand command) {
            openSettings();
            Q_EMIT openSettingsCommandsTab();
            settingsView().editTriggers(command);
        });
        connect(view, &CommandReferenceView::editCustomCommandRequested, this, [this](const QUuid& id) {
            openSettings();
            Q_EMIT openSettingsCommandsTab();
            settingsView().editCustomCommand(id);
        });
        commandWindow_ = std::make_unique<AppWindow>(QStringLiteral("Voice Commands Reference"),
                                                     commandWindowSize, AppWindow::Resizing::Free, view);
    }
    present(*commandWindow_);
}

void AppDelegate::showSetup() {
    if (welcomeWindow_) {
        welcomeWindow_->setView(new WelcomeView([this] { welcomeWindow_->close(); }));
    }
    showWelcomeWindow();
}

void AppDelegate::showWelcomeWindow() {
    if (!welcomeWindow_) {
        welcomeWindow_ = std::make_unique<AppWindow>(QStringLiteral("Welcome to Brivandel"),
                                                     welcomeWindowSize, AppWindow::Resizing::Fixed,
                                                     new WelcomeView([this] { welcomeWindow_->close(); }));
    }
    present(*welcomeWindow_);
}

void AppDelegate::sayThatThereIsNoStatusArea() const {
    if (!desktop_.statusArea->isThere()) {
        platform_.notifier->deliver(
            {QStringLiteral("noStatusArea"), QStringLiteral("Brivandel is running"),
             QStringLiteral(
                 "This desktop has no place for its status item. Start Brivandel again to open its panel.")});
    }
}

} // namespace brivandel
