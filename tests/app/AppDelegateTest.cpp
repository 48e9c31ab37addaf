#include "app/AppDelegate.h"

#include "app/AppWindow.h"
#include "app/Popover.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "settings/CustomCommandEditorView.h"
#include "settings/SettingsView.h"
#include "support/ScriptedListening.h"
#include "views/CommandReferenceView.h"
#include "views/WelcomeView.h"
#include "widgets/Button.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

const auto launchedBefore = QStringLiteral("hasLaunchedBefore");

template <typename Widget>
QList<Widget*> topLevel(const QString& nameOrTitle) {
    QList<Widget*> found;
    for (auto* widget : QApplication::topLevelWidgets()) {
        auto* wanted = qobject_cast<Widget*>(widget);
        if (wanted != nullptr &&
            (widget->objectName() == nameOrTitle || widget->windowTitle() == nameOrTitle)) {
            found += wanted;
        }
    }
    return found;
}

class AppDelegateTest : public testing::Test {
protected:
    void launch() { delegate.applicationDidFinishLaunching(); }

    static QMenu& menu() { return *topLevel<QMenu>(QStringLiteral("menu")).constFirst(); }
    static QAction& item(int index) { return *menu().actions().at(index); }
    static AppWindow* window(const char* title) {
        const auto found = topLevel<AppWindow>(QString::fromLatin1(title));
        EXPECT_LE(found.size(), 1) << "there are two of them";
        return found.isEmpty() ? nullptr : found.constFirst();
    }
    static AppWindow* welcomeWindow() { return window("Welcome to Brivandel"); }
    static WelcomeView& welcomeView() { return *welcomeWindow()->findChild<WelcomeView*>(); }
    static Popover& popover() { return *topLevel<Popover>(QStringLiteral("popover")).constFirst(); }
    static void press(const QWidget& parent, const char* button) {
        QTest::mouseClick(parent.findChild<Button*>(QString::fromLatin1(button)), Qt::LeftButton);
    }

    ScriptedListening listening;
    ScriptedDesktop scripted = makeScriptedDesktop();
    QTemporaryDir folder;
    AppDelegate delegate{*listening.scripted.platform, *scripted.desktop, listening.controller,
                         folder.filePath(QStringLiteral("last-failure.json"))};
};

TEST_F(AppDelegateTest, FirstLaunch_ShowsTheWalkthroughAndRemembers) {
    ASSERT_FALSE(listening.scripted.defaults.object(launchedBefore).isValid());
    launch();
    ASSERT_NE(welcomeWindow(), nullptr);
    EXPECT_TRUE(welcomeWindow()->isVisible());
    EXPECT_EQ(welcomeWindow()->size(), QSize(520, 520));
    EXPECT_EQ(listening.scripted.defaults.object(launchedBefore), QVariant(true));
    EXPECT_FALSE(listening.controller.isListening());
}

TEST_F(AppDelegateTest, LaterLaunch_ShowsTheWalkthroughAndStoresNothing) {
    listening.scripted.defaults.set(launchedBefore, true);
    listening.events.clear();
    launch();
    EXPECT_TRUE(welcomeWindow()->isVisible());
    EXPECT_TRUE(listening.events.empty());
}

TEST_F(AppDelegateTest, Menu_HasItsItemsInOrder) {
    launch();
    QStringList titles;
    for (const auto* action : menu().actions()) {
        titles += action->isSeparator() ? QStringLiteral("-") : action->text();
    }
    EXPECT_EQ(titles, (QStringList{QStringLiteral("Enable Voice Control"), QStringLiteral("-"),
                                   QStringLiteral("Settings..."), QStringLiteral("Command Reference"),
                                   QStringLiteral("Setup Instructions"), QStringLiteral("Show Status"),
                                   QStringLiteral("-"), QStringLiteral("Quit Brivandel")}));
    EXPECT_EQ(item(2).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    EXPECT_EQ(item(7).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    EXPECT_EQ(item(0).data().toInt(), 1);
}

TEST_F(AppDelegateTest, ListeningItem_SwitchesAndSaysWhichWay) {
    launch();
    item(0).trigger();
    EXPECT_TRUE(listening.controller.isListening());
    EXPECT_EQ(item(0).text(), QStringLiteral("● Listening — Click to Disable"));
    item(0).trigger();
    EXPECT_FALSE(listening.controller.isListening());
    EXPECT_EQ(item(0).text(), QStringLiteral("Enable Voice Control"));
}

TEST_F(AppDelegateTest, ListeningSwitchedElsewhere_IsFollowedByTheItem) {
    launch();
    listening.controller.setIsListening(true);
    EXPECT_EQ(item(0).text(), QStringLiteral("● Listening — Click to Disable"));
    listening.controller.setIsListening(false);
    EXPECT_EQ(item(0).text(), QStringLiteral("Enable Voice Control"));
}

TEST_F(AppDelegateTest, GetStarted_ClosesTheWalkthroughWhichStaysWhereItWas) {
    launch();
    press(welcomeView(), "Next");
    press(welcomeView(), "Next");
    auto* view = &welcomeView();
    press(*view, "Get Started");
    EXPECT_FALSE(welcomeWindow()->isVisible());
    EXPECT_EQ(&welcomeView(), view);
    EXPECT_EQ(view->page(), 2);
}

TEST_F(AppDelegateTest, SetupInstructions_BeginAtTheFirstPage) {
    launch();
    press(welcomeView(), "Next");
    press(welcomeView(), "Next");
    press(welcomeView(), "Get Started");
    item(4).trigger();
    EXPECT_TRUE(welcomeWindow()->isVisible());
    EXPECT_EQ(welcomeView().page(), 0);
    EXPECT_EQ(welcomeWindow()->findChildren<WelcomeView*>().size(), 1);
}

TEST_F(AppDelegateTest, WindowThatWasMoved_IsCentredAgainWhenAskedFor) {
    launch();
    welcomeWindow()->move(3, 5);
    item(4).trigger();
    const QPoint middle = QApplication::primaryScreen()->availableGeometry().center();
    EXPECT_NEAR(welcomeWindow()->frameGeometry().center().x(), middle.x(), 1);
    EXPECT_NEAR(welcomeWindow()->frameGeometry().center().y(), middle.y(), 1);
}

TEST_F(AppDelegateTest, ShowStatus_OpensAndClosesThePopover) {
    launch();
    EXPECT_FALSE(popover().isVisible());
    item(5).trigger();
    EXPECT_TRUE(popover().isVisible());
    item(5).trigger();
    EXPECT_FALSE(popover().isVisible());
}

TEST_F(AppDelegateTest, EachWindow_IsMadeOnceAndShownAgain) {
    launch();
    EXPECT_EQ(window("Voice Commands Reference"), nullptr);
    item(3).trigger();
    auto* reference = window("Voice Commands Reference");
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->size(), QSize(600, 500));
    item(3).trigger();
    EXPECT_EQ(window("Voice Commands Reference"), reference);
    reference->findChild<QLineEdit*>(QStringLiteral("search"))->setText(QStringLiteral("loop"));
    reference->close();
    item(3).trigger();
    EXPECT_EQ(window("Voice Commands Reference"), reference);
    EXPECT_TRUE(reference->isVisible());
    EXPECT_EQ(reference->findChild<CommandReferenceView*>()->searchText(), QStringLiteral("loop"));

    item(2).trigger();
    auto* settings = window("Brivandel Settings");
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->size(), QSize(500, 500));
    EXPECT_EQ(settings->findChild<SettingsView*>()->selectedTab(), SettingsView::General);
    item(2).trigger();
    EXPECT_EQ(window("Brivandel Settings"), settings);
}

TEST_F(AppDelegateTest, ManageButtonOfTheReference_OpensTheSettingsOnTheirCommandsTab) {
    launch();
    item(3).trigger();
    auto* view = window("Voice Commands Reference")->findChild<CommandReferenceView*>();
    Q_EMIT view->settingsRequested();
    auto* settings = window("Brivandel Settings");
    ASSERT_NE(settings, nullptr);
    EXPECT_TRUE(settings->isVisible());
    EXPECT_EQ(settings->findChild<SettingsView*>()->selectedTab(), SettingsView::Commands);
}

TEST_F(AppDelegateTest, PencilOfTheReference_OpensTheCommandsTriggers) {
    launch();
    item(3).trigger();
    Q_EMIT window("Voice Commands Reference")
        ->findChild<CommandReferenceView*>()
        ->editTriggersRequested(VoiceCommand::clickOn);
    auto* settings = window("Brivandel Settings");
    ASSERT_NE(settings, nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(settings->findChild<SettingsView*>()->selectedTab(), SettingsView::Commands);
    EXPECT_NE(settings->findChild<QWidget*>(rawValue(VoiceCommand::clickOn)), nullptr);
}

TEST_F(AppDelegateTest, PencilOfACustomCommand_OpensItsEditor) {
    const CustomCommand command{.id = QUuid::createUuid(),
                                .name = QStringLiteral("Mixer"),
                                .triggers = {QStringLiteral("mixer")},
                                .capturedKey = {}};
    listening.controller.setCustomCommands({command});
    launch();
    item(3).trigger();
    Q_EMIT window("Voice Commands Reference")
        ->findChild<CommandReferenceView*>()
        ->editCustomCommandRequested(command.id);
    auto* settings = window("Brivandel Settings");
    ASSERT_NE(settings, nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(settings->findChild<SettingsView*>()->selectedTab(), SettingsView::Commands);
    const auto* editor = settings->findChild<CustomCommandEditorView*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->findChild<QLineEdit*>(QStringLiteral("name"))->text(), QStringLiteral("Mixer"));
}

TEST_F(AppDelegateTest, RequestsOfAnotherStart_AreCarriedOut) {
    launch();
    const QSignalSpy quits(&delegate, &AppDelegate::quitRequested);
    delegate.handle(LaunchRequest::Toggle);
    EXPECT_TRUE(listening.controller.isListening());
    delegate.handle(LaunchRequest::None);
    EXPECT_TRUE(popover().isVisible());
    delegate.handle(LaunchRequest::None);
    EXPECT_TRUE(popover().isVisible()) << "a further start shows it, and never closes it";
    delegate.handle(LaunchRequest::Popover);
    EXPECT_FALSE(popover().isVisible());
    delegate.handle(LaunchRequest::Settings);
    EXPECT_TRUE(window("Brivandel Settings")->isVisible());
    delegate.handle(LaunchRequest::Commands);
    EXPECT_TRUE(window("Voice Commands Reference")->isVisible());
    delegate.handle(LaunchRequest::Quit);
    EXPECT_EQ(quits.size(), 1);
}

TEST_F(AppDelegateTest, Quit_IsAskedForByTheLastItem) {
    launch();
    const QSignalSpy quits(&delegate, &AppDelegate::quitRequested);
    item(7).trigger();
    EXPECT_EQ(quits.size(), 1);
}

TEST_F(AppDelegateTest, DesktopsAppearance_IsFollowedWhileRunning) {
    launch();
    scripted.appearance.setPreference(DesktopAppearance::Preference::Dark);
    QCoreApplication::processEvents();
    EXPECT_EQ(appearanceOf(welcomeWindow()->palette()), Appearance::Dark);
    scripted.appearance.setPreference(DesktopAppearance::Preference::Light);
    QCoreApplication::processEvents();
    EXPECT_EQ(appearanceOf(welcomeWindow()->palette()), Appearance::Light);
}

TEST_F(AppDelegateTest, WindowThatIsAskedFor_BringsTheProgramToTheFront) {
    launch();
    EXPECT_EQ(scripted.activation.count(), 1) << "for the walkthrough";
    delegate.openSettings();
    EXPECT_EQ(scripted.activation.count(), 2);
    delegate.showCommands();
    EXPECT_EQ(scripted.activation.count(), 3);
    delegate.handle(LaunchRequest::Popover);
    EXPECT_EQ(scripted.activation.count(), 3) << "the panel leaves the workstation in front";
}

TEST_F(AppDelegateTest, DesktopWithoutStatusArea_IsSaidOnceAfterAWhile) {
    scripted.statusArea.setIsThere(false);
    launch();
    listening.events.clear();
    listening.scripted.mainQueue.advance(4999ms);
    EXPECT_TRUE(listening.events.empty());
    listening.scripted.mainQueue.advance(60s);
    ASSERT_EQ(listening.events.size(), 1);
    EXPECT_NE(listening.events[0].find("Start Brivandel again to open its panel."), std::string::npos)
        << listening.events[0];
}

TEST_F(AppDelegateTest, StatusAreaThatComesInTime_IsNotComplainedAbout) {
    scripted.statusArea.setIsThere(false);
    launch();
    listening.events.clear();
    scripted.statusArea.setIsThere(true);
    listening.scripted.mainQueue.advance(60s);
    EXPECT_TRUE(listening.events.empty());
}

} // namespace
} // namespace brivandel
