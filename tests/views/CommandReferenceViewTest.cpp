#include "views/CommandReferenceView.h"

#include "listening/SpokenTrial.h"
#include "support/ScriptedListening.h"
#include "views/ReferenceRows.h"
#include "widgets/Button.h"
#include "widgets/Label.h"
#include "widgets/PhraseStrip.h"
#include "widgets/RecyclingList.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

CustomCommand customCommand(const QString& name, const QStringList& triggers, bool isEnabled = true) {
    return {
        .id = QUuid::createUuid(),
        .name = name,
        .triggers = triggers,
        .capturedKey = {.keyCode = 6,
                        .modifierFlags = shiftModifier | commandModifier,
                        .displayString = QStringLiteral("⇧⌘Z"),
                        .appleScript = QStringLiteral("tell application \"System Events\"\n"
                                                      "    tell process \"Logic Pro\"\n"
                                                      "        set frontmost to true\n"
                                                      "        key code 6 using {command down, shift down}\n"
                                                      "    end tell\n"
                                                      "end tell")},
        .isEnabled = isEnabled};
}

// In the order of the sidebar.
enum SidebarRow : int { All, Transport, Recording, Editing, Looping, Metronome, Navigation, Custom };

class CommandReferenceViewTest : public testing::Test {
protected:
    void SetUp() override {
        view.resize(600, 500);
        view.show();
        turnOfTheLoop();
    }
    static void turnOfTheLoop() { QCoreApplication::processEvents(); }

    template <typename Widget>
    Widget& find(const char* name) {
        auto* found = view.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    RecyclingList& list() { return find<RecyclingList>("list"); }
    QString title() { return find<Label>("title").text(); }
    void choose(SidebarRow row) {
        find<QListWidget>("sidebar").setCurrentRow(row);
        turnOfTheLoop();
    }
    void search(const QString& text) {
        find<QLineEdit>("search").setText(text);
        turnOfTheLoop();
    }
    void setCustomCommands(const CustomCommandList& commands) {
        listening.controller.setCustomCommands(commands);
        turnOfTheLoop();
    }

    template <typename Item>
    QList<Item> shown() {
        QList<Item> found;
        for (const auto& item : view.items()) {
            if (const auto* wanted = std::get_if<Item>(&item)) {
                found += *wanted;
            }
        }
        return found;
    }
    QList<VoiceCommand> builtIn() { return shown<VoiceCommand>(); }
    bool hasNoMatches() { return !shown<NoMatches>().isEmpty(); }

    // The first row's content of this kind that can be seen.
    template <typename Row>
    Row& firstRow() {
        for (auto* row : view.findChildren<Row*>()) {
            if (row->isVisible()) {
                return *row;
            }
        }
        throw std::runtime_error("there is no such row");
    }

    ScriptedListening listening;
    SpokenTrial spokenTrial{listening.controller, *listening.scripted.platform};
    CommandReferenceView view{listening.controller, *listening.scripted.platform->mainQueue, spokenTrial};
};

TEST_F(CommandReferenceViewTest, AtFirst_ListsTransport) {
    EXPECT_EQ(view.selection(), ReferenceSelection::of(CommandCategory::transport));
    EXPECT_EQ(title(), QStringLiteral("Transport"));
    EXPECT_EQ(builtIn().size(), 7);
    EXPECT_EQ(view.items().size(), 7);
    EXPECT_EQ(find<QLineEdit>("search").placeholderText(), QStringLiteral("Search commands..."));
}

TEST_F(CommandReferenceViewTest, Sidebar_CountsTheCommandsOfEachCategory) {
    auto& sidebar = find<QListWidget>("sidebar");
    QStringList names;
    for (int row = 0; row < sidebar.count(); ++row) {
        names += sidebar.item(row)->data(Qt::AccessibleTextRole).toString();
    }
    EXPECT_EQ(names,
              (QStringList{QStringLiteral("All"), QStringLiteral("Transport, 7 commands"),
                           QStringLiteral("Recording, 3 commands"), QStringLiteral("Editing, 5 commands"),
                           QStringLiteral("Looping, 3 commands"), QStringLiteral("Metronome, 2 commands"),
                           QStringLiteral("Navigation, 2 commands"), QStringLiteral("Custom")}));
}

TEST_F(CommandReferenceViewTest, EachSelection_HasItsTitleAndItsRows) {
    setCustomCommands({customCommand(QStringLiteral("Mixer"), {QStringLiteral("open mixer")})});
    choose(All);
    EXPECT_EQ(title(), QStringLiteral("All Commands"));
    EXPECT_EQ(builtIn().size(), 20);
    EXPECT_EQ(shown<BarNavigationForm>().size(), 2);
    EXPECT_EQ(shown<CustomCommand>().size(), 1);
    EXPECT_EQ(shown<ManageButton>().size(), 1);
    choose(Editing);
    EXPECT_EQ(builtIn().size(), 5);
    EXPECT_EQ(view.items().size(), 5);
    choose(Navigation);
    EXPECT_EQ(title(), QStringLiteral("Navigation"));
    EXPECT_EQ(builtIn().size(), 0);
    EXPECT_EQ(shown<BarNavigationForm>().size(), 2);
    EXPECT_EQ(view.items().size(), 2);
    choose(Custom);
    EXPECT_EQ(title(), QStringLiteral("Custom Commands"));
    EXPECT_EQ(view.items().size(), 2);
    EXPECT_TRUE(std::holds_alternative<ManageButton>(view.items()[0]));
    EXPECT_TRUE(std::holds_alternative<CustomCommand>(view.items()[1]));
}

TEST_F(CommandReferenceViewTest, WordThatIsNowhere_SaysThatNothingMatches) {
    setCustomCommands({customCommand(QStringLiteral("Mixer"), {QStringLiteral("open mixer")})});
    choose(All);
    search(QStringLiteral("zzz"));
    EXPECT_TRUE(builtIn().isEmpty());
    EXPECT_TRUE(shown<BarNavigationForm>().isEmpty());
    EXPECT_TRUE(shown<CustomCommand>().isEmpty());
    EXPECT_TRUE(hasNoMatches());
    EXPECT_EQ(find<Label>("noMatches").text(), QStringLiteral("No commands match your search."));
    search(QString());
    EXPECT_FALSE(hasNoMatches());
}

TEST_F(CommandReferenceViewTest, WordOfATrigger_FindsCustomCommandsAndNoBuiltInOnes) {
    setCustomCommands({customCommand(QStringLiteral("Mixer"), {QStringLiteral("show me the faders")})});
    for (const auto row : {All, Custom}) {
        choose(row);
        search(QStringLiteral("FADERS"));
        EXPECT_EQ(shown<CustomCommand>().size(), 1);
    }
    choose(Transport);
    EXPECT_TRUE(shown<CustomCommand>().isEmpty());
    EXPECT_TRUE(hasNoMatches());
    choose(All);
    search(QStringLiteral("skip ahead"));
    EXPECT_TRUE(builtIn().isEmpty());
}

TEST_F(CommandReferenceViewTest, WordOfADescription_FindsItsCommands) {
    choose(All);
    search(QStringLiteral("cycle"));
    EXPECT_EQ(builtIn(), (QList{VoiceCommand::enableLoop, VoiceCommand::disableLoop}));
}

TEST_F(CommandReferenceViewTest, Search_KnowsCaseAndCompositionOfLetters) {
    setCustomCommands({customCommand(QStringLiteral("Caf\u00e9 Reverb"), {QStringLiteral("wet")})});
    choose(Custom);
    search(QStringLiteral("CAFE\u0301")); // the accent as a character of its own
    EXPECT_EQ(shown<CustomCommand>().size(), 1);
    search(QStringLiteral("cafe")); // an accent counts
    EXPECT_EQ(shown<CustomCommand>().size(), 0);
}

TEST_F(CommandReferenceViewTest, Hidden_KeepsItsSearchAndSelection) {
    choose(Looping);
    search(QStringLiteral("loop"));
    view.hide();
    view.show();
    EXPECT_EQ(view.searchText(), QStringLiteral("loop"));
    EXPECT_EQ(view.selection(), ReferenceSelection::of(CommandCategory::looping));
}

TEST_F(CommandReferenceViewTest, CommandsThatChange_AreFollowedAtOnce) {
    choose(Custom);
    EXPECT_TRUE(shown<CustomCommand>().isEmpty());
    setCustomCommands({customCommand(QStringLiteral("Mixer"), {QStringLiteral("open mixer")})});
    EXPECT_EQ(shown<CustomCommand>().size(), 1);
    choose(Transport);
    listening.controller.setBuiltInTriggerOverrides({{QStringLiteral("play"), {QStringLiteral("go on")}}});
    turnOfTheLoop();
    EXPECT_EQ(firstRow<CommandRow>().findChild<PhraseStrip*>()->phrases(),
              QStringList{QStringLiteral("go on")});
}

TEST_F(CommandReferenceViewTest, DisabledCommand_BearsABadge) {
    setCustomCommands({customCommand(QStringLiteral("Mixer"), {QStringLiteral("open mixer")}, false)});
    choose(Custom);
    QStringList badges;
    for (const auto* badge : firstRow<CustomCommandReferenceRow>().findChildren<QWidget*>()) {
        if (badge->isVisible() && !badge->accessibleName().isEmpty() && badge->inherits("brivandel::Badge")) {
            badges += badge->accessibleName();
        }
    }
    EXPECT_EQ(badges, (QStringList{QStringLiteral("DISABLED"), QStringLiteral("CUSTOM")}));
}

TEST_F(CommandReferenceViewTest, ShowAppleScript_UnfoldsWhatIsSentAndStaysUnfolded) {
    const CustomCommand mixer = customCommand(QStringLiteral("Mixer"), {QStringLiteral("open mixer")});
    setCustomCommands({mixer});
    choose(Custom);
    auto* row = &firstRow<CustomCommandReferenceRow>();
    EXPECT_FALSE(row->findChild<QWidget*>(QStringLiteral("scriptBox"))->isVisible());
    QTest::mouseClick(row->findChild<Button*>(QStringLiteral("showAppleScript")), Qt::LeftButton);
    turnOfTheLoop();
    EXPECT_TRUE(row->findChild<QWidget*>(QStringLiteral("scriptBox"))->isVisible());
    EXPECT_EQ(row->findChild<Label*>(QStringLiteral("script"))->text(), mixer.capturedKey.appleScript);
    choose(Transport);
    choose(Custom);
    EXPECT_TRUE(
        firstRow<CustomCommandReferenceRow>().findChild<QWidget*>(QStringLiteral("scriptBox"))->isVisible());
}

TEST_F(CommandReferenceViewTest, Pencil_AsksForTheCommandsTriggers) {
    const QSignalSpy requests(&view, &CommandReferenceView::editTriggersRequested);
    auto* pencil = firstRow<CommandRow>().findChild<Button*>(QStringLiteral("pencil"));
    EXPECT_EQ(pencil->toolTip(), QStringLiteral("Edit trigger phrases"));
    QTest::mouseClick(pencil, Qt::LeftButton);
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0][0].value<VoiceCommand>(), VoiceCommand::play);
}

TEST_F(CommandReferenceViewTest, PencilOfACustomCommand_AsksForItsEditor) {
    const CustomCommand command = customCommand(QStringLiteral("Mixer"), {QStringLiteral("mixer")});
    setCustomCommands({command});
    choose(Custom);
    const QSignalSpy requests(&view, &CommandReferenceView::editCustomCommandRequested);
    auto* pencil = firstRow<CustomCommandReferenceRow>().findChild<Button*>(QStringLiteral("pencil"));
    EXPECT_EQ(pencil->toolTip(), QStringLiteral("Edit command"));
    QTest::mouseClick(pencil, Qt::LeftButton);
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0][0].value<QUuid>(), command.id);
}

TEST_F(CommandReferenceViewTest, Copy_TakesTheFirstTriggerInForceAndSaysSoForAMoment) {
    listening.controller.setBuiltInTriggerOverrides({{QStringLiteral("play"), {QStringLiteral("go on")}}});
    turnOfTheLoop();
    auto* copy = firstRow<CommandRow>().findChild<Button*>(QStringLiteral("copy"));
    EXPECT_EQ(copy->toolTip(), QStringLiteral("Copy command"));
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("go on"));
    EXPECT_EQ(find<Label>("copied").text(), QStringLiteral("Copied “go on”"));
    listening.scripted.mainQueue.advance(1999ms);
    EXPECT_TRUE(find<Label>("copied").isVisible());
    listening.scripted.mainQueue.advance(1ms);
    EXPECT_FALSE(find<Label>("copied").isVisible());
}

TEST_F(CommandReferenceViewTest, ManageButton_AsksForTheSettings) {
    choose(Custom);
    const QSignalSpy requests(&view, &CommandReferenceView::settingsRequested);
    auto& button = find<Button>("manage");
    EXPECT_EQ(button.text(), QStringLiteral("Manage Custom Commands in Settings"));
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(requests.size(), 1);
}

TEST_F(CommandReferenceViewTest, ThousandsOfCommands_HaveFewWidgets) {
    CustomCommandList commands;
    for (int index = 0; index < 2000; ++index) {
        commands +=
            customCommand(QStringLiteral("Command %1").arg(index), {QStringLiteral("phrase %1").arg(index)});
    }
    setCustomCommands(commands);
    choose(All);
    EXPECT_GT(view.items().size(), 2000U);
    EXPECT_LT(view.findChildren<CustomCommandReferenceRow*>().size(), 40);
    EXPECT_EQ(list().rowCount(), static_cast<int>(view.items().size()));
}

} // namespace
} // namespace brivandel
