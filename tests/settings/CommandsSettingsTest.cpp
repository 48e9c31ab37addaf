#include "settings/BuiltInCommandRow.h"
#include "settings/BuiltInCommandsPanel.h"
#include "settings/CommandsSettingsView.h"
#include "settings/CustomCommandEditorView.h"
#include "settings/CustomCommandSettingsRow.h"
#include "settings/SettingsTest.h"
#include "settings/SettingsView.h"
#include "widgets/Button.h"
#include "widgets/Chip.h"
#include "widgets/ChoiceList.h"
#include "widgets/Label.h"
#include "widgets/PhraseStrip.h"
#include "widgets/PillButton.h"
#include "widgets/RecyclingList.h"
#include "widgets/SegmentedPicker.h"
#include "widgets/Switch.h"
#include "widgets/TextField.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QRadioButton>
#include <QScrollArea>

namespace brivandel::testing {

namespace {

using Panel = CommandsSettingsView::CommandPanel;

class CommandsSettingsTest : public SettingsTest {
protected:
    void show() {
        view.emplace(controller(), layout());
        view->openSettingsCommandsTab();
        open(*view);
    }
    void restart() {
        view.reset();
        startProgram();
        show();
    }
    [[nodiscard]] CommandsSettingsView& commands() { return *view->findChild<CommandsSettingsView*>(); }
    [[nodiscard]] ChoiceList& categories() { return find<ChoiceList>(*view, "categories"); }

    // Built-in commands.
    [[nodiscard]] BuiltInCommandRow& row(VoiceCommand command) {
        for (auto* row : view->findChildren<BuiltInCommandRow*>()) {
            if (row->command() == command && !row->isHidden()) {
                return *row;
            }
        }
        ADD_FAILURE() << "no row: " << rawValue(command).toStdString();
        return *view->findChild<BuiltInCommandRow*>();
    }
    [[nodiscard]] QList<VoiceCommand> shownCommands() {
        QList<VoiceCommand> shown;
        for (const auto* row : view->findChildren<BuiltInCommandRow*>()) {
            if (row->isVisible()) {
                shown += row->command();
            }
        }
        return shown;
    }
    [[nodiscard]] static QList<Chip*> chipsOf(const QWidget& row) {
        QList<Chip*> chips;
        for (auto* chip : row.findChildren<Chip*>()) {
            if (!chip->isHidden()) {
                chips += chip;
            }
        }
        return chips;
    }
    [[nodiscard]] static QStringList phrasesOf(const QWidget& row) {
        QStringList phrases;
        for (const auto* chip : chipsOf(row)) {
            phrases += chip->phrase();
        }
        return phrases;
    }
    [[nodiscard]] static int crossesOf(const QWidget& row) {
        int crosses = 0;
        for (const auto* chip : chipsOf(row)) {
            const auto* cross = chip->findChild<Button*>(QStringLiteral("remove"));
            crosses += cross != nullptr && cross->isVisible() ? 1 : 0;
        }
        return crosses;
    }
    void addTrigger(BuiltInCommandRow& row, const QString& text) {
        if (!row.isShowingTriggerEditor()) {
            click(find<Button>(row, "pencil"));
        }
        auto& field = find<TextField>(row, "newTrigger");
        field.setFocus();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        turnOfTheLoop();
    }
    void clickCross(const QWidget& row, int index) {
        click(*chipsOf(row).at(index)->findChild<Button*>(QStringLiteral("remove")));
    }

    // Custom commands.
    void showCustom(const CustomCommandList& list) {
        controller().setCustomCommands(list);
        controller().saveCustomCommands();
        show();
        click(*commands().findChild<QRadioButton*>(QStringLiteral("Custom")));
    }
    [[nodiscard]] RecyclingList& list() { return find<RecyclingList>(*view, "customCommands"); }
    [[nodiscard]] CustomCommandSettingsRow& customRow(int row) {
        auto* widget = qobject_cast<CustomCommandSettingsRow*>(list().rowWidget(row));
        EXPECT_NE(widget, nullptr) << row;
        return *widget;
    }
    [[nodiscard]] QStringList names() {
        QStringList names;
        for (const auto& command : controller().customCommands()) {
            names += command.name;
        }
        return names;
    }
    [[nodiscard]] CustomCommandEditorView* editor() { return view->findChild<CustomCommandEditorView*>(); }
    CustomCommandList fourCommands() {
        return {makeCommand(QStringLiteral("A"), {QStringLiteral("a")}),
                makeCommand(QStringLiteral("B"), {QStringLiteral("b"), QStringLiteral("bee")}, 2),
                makeCommand(QStringLiteral("C"), {QStringLiteral("c")}),
                makeCommand(QStringLiteral("D"), {QStringLiteral("d")})};
    }
    void clickRow(int row, Qt::KeyboardModifiers modifiers = {}) {
        const QPoint place(list().rowRect(row).right() - 2, list().rowRect(row).center().y());
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, place);
        turnOfTheLoop();
    }

    std::optional<SettingsView> view;
};

TEST_F(CommandsSettingsTest, Opens_OnTheFirstCategoryOfTheBuiltIns) {
    show();
    EXPECT_EQ(commands().panel(), Panel::builtIn);
    QStringList names;
    for (int index = 0; index < categories().count(); ++index) {
        names += categories().item(index)->text();
    }
    EXPECT_EQ(names, QStringList({QStringLiteral("Transport"), QStringLiteral("Recording"),
                                  QStringLiteral("Editing"), QStringLiteral("Looping"),
                                  QStringLiteral("Metronome"), QStringLiteral("Navigation")}));
    EXPECT_EQ(categories().currentRow(), 0);
    EXPECT_EQ(shownCommands().size(), 7);
    EXPECT_EQ(shownCommands().first(), VoiceCommand::play);
}

TEST_F(CommandsSettingsTest, Category_ShowsItsCommandsInTheirOrder) {
    show();
    QTest::mouseClick(categories().viewport(), Qt::LeftButton, {},
                      categories().visualItemRect(categories().item(1)).center());
    turnOfTheLoop();
    QList<VoiceCommand> wanted;
    for (const VoiceCommand command : allVoiceCommands) {
        if (category(command) == CommandCategory::recording) {
            wanted += command;
        }
    }
    EXPECT_EQ(shownCommands(), wanted);
    QTest::mouseClick(categories().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      categories().visualItemRect(categories().item(1)).center());
    EXPECT_EQ(categories().selectedItems().size(), 1) << "no click leaves none chosen";
    QTest::keyClick(&categories(), Qt::Key_End);
    turnOfTheLoop();
    EXPECT_TRUE(shownCommands().isEmpty()) << "Navigation has no built-in command";
}

TEST_F(CommandsSettingsTest, PanelAndCategory_LiveAsLongAsTheWindow) {
    show();
    categories().setCurrentRow(2);
    click(*commands().findChild<QRadioButton*>(QStringLiteral("Custom")));
    view->setSelectedTab(SettingsView::General);
    view->hide();
    turnOfTheLoop();
    view->show();
    view->openSettingsCommandsTab();
    EXPECT_EQ(commands().panel(), Panel::custom);
    EXPECT_EQ(categories().currentRow(), 2);
    show();
    EXPECT_EQ(commands().panel(), Panel::builtIn);
    EXPECT_EQ(categories().currentRow(), 0);
}

TEST_F(CommandsSettingsTest, Row_ShowsTheDefaultPhrases) {
    show();
    auto& rewind = row(VoiceCommand::rewind);
    EXPECT_EQ(phrasesOf(rewind), triggers(VoiceCommand::rewind));
    EXPECT_EQ(rewind.findChild<Label*>()->text(), description(VoiceCommand::rewind));
    EXPECT_FALSE(find<Button>(rewind, "reset").isVisible());
    EXPECT_EQ(find<Button>(rewind, "pencil").toolTip(), QStringLiteral("Edit trigger phrases"));
    EXPECT_FALSE(find<TextField>(rewind, "newTrigger").isVisible());
    EXPECT_EQ(chipsOf(rewind).first()->tint(), NamedColor::Blue);
    EXPECT_EQ(chipsOf(rewind).first()->tintOpacity(), 0.12);
}

TEST_F(CommandsSettingsTest, LongDescription_LeavesTheButtonsInSight) {
    show();
    for (int place = 0; place < categories().count(); ++place) {
        categories().setCurrentRow(place);
        turnOfTheLoop();
        for (const VoiceCommand command : shownCommands()) {
            addTrigger(row(command), QStringLiteral("one more"));
            const QWidget* viewport = row(command).parentWidget()->parentWidget();
            for (const char* name : {"reset", "pencil"}) {
                const auto& button = find<Button>(row(command), name);
                EXPECT_LT(button.mapTo(viewport, button.rect().topRight()).x(), viewport->width())
                    << rawValue(command).toStdString() << ' ' << name;
            }
        }
    }
}

TEST_F(CommandsSettingsTest, Pencil_OpensAndClosesTheTriggerEditor) {
    show();
    auto& play = row(VoiceCommand::play);
    click(find<Button>(play, "pencil"));
    auto& field = find<TextField>(play, "newTrigger");
    EXPECT_TRUE(field.isVisible());
    EXPECT_EQ(field.placeholderText(), QStringLiteral("Add trigger..."));
    EXPECT_FALSE(find<Button>(play, "add").isEnabled());
    QTest::keyClicks(&field, QStringLiteral(" \t"));
    EXPECT_FALSE(find<Button>(play, "add").isEnabled());
    QTest::keyClicks(&field, QStringLiteral("x"));
    EXPECT_TRUE(find<Button>(play, "add").isEnabled());
    click(find<Button>(play, "pencil"));
    EXPECT_FALSE(field.isVisible());
}

TEST_F(CommandsSettingsTest, FirstAddition_StoresTheDefaultsAndTheNewOne) {
    show();
    auto& play = row(VoiceCommand::play);
    addTrigger(play, QStringLiteral("  Roll TAPE "));
    const QStringList wanted = triggers(VoiceCommand::play) + QStringList(QStringLiteral("roll tape"));
    EXPECT_EQ(stored("builtInTriggerOverrides").toByteArray(),
              encodeTriggerOverrides({{QStringLiteral("play"), wanted}}));
    EXPECT_EQ(phrasesOf(play), wanted);
    EXPECT_TRUE(find<Button>(play, "reset").isVisible());
    EXPECT_TRUE(find<TextField>(play, "newTrigger").text().isEmpty());
    EXPECT_TRUE(play.isShowingTriggerEditor());
    for (const auto* chip : chipsOf(play)) {
        EXPECT_EQ(chip->tint(), NamedColor::Orange);
        EXPECT_EQ(chip->tintOpacity(), 0.15);
    }
}

TEST_F(CommandsSettingsTest, AddButton_AddsToo) {
    show();
    auto& play = row(VoiceCommand::play);
    click(find<Button>(play, "pencil"));
    find<TextField>(play, "newTrigger").setText(QStringLiteral("roll"));
    click(find<Button>(play, "add"));
    EXPECT_TRUE(phrasesOf(play).contains(QStringLiteral("roll")));
}

TEST_F(CommandsSettingsTest, PhraseThatIsThere_StaysInTheField) {
    show();
    auto& play = row(VoiceCommand::play);
    addTrigger(play, QStringLiteral("PLAY"));
    EXPECT_EQ(find<TextField>(play, "newTrigger").text(), QStringLiteral("PLAY"));
    EXPECT_FALSE(stored("builtInTriggerOverrides").isValid());
}

TEST_F(CommandsSettingsTest, OnePhrase_HasNoCross) {
    show();
    auto& pause = row(VoiceCommand::pause);
    ASSERT_EQ(phrasesOf(pause).size(), 1);
    EXPECT_EQ(crossesOf(pause), 0);
    addTrigger(pause, QStringLiteral("hold"));
    EXPECT_EQ(crossesOf(pause), 2);
    clickCross(pause, 0);
    EXPECT_EQ(phrasesOf(pause), QStringList(QStringLiteral("hold")));
    EXPECT_EQ(crossesOf(pause), 0);
    EXPECT_EQ(stored("builtInTriggerOverrides").toByteArray(), QByteArray(R"({"pause":["hold"]})"));
}

TEST_F(CommandsSettingsTest, LastPhraseRemovedAllTheSame_BecomesTheRawValue) {
    controller().setBuiltInTriggerOverrides({{QStringLiteral("pause"), {QStringLiteral("hold")}}});
    show();
    auto& pause = row(VoiceCommand::pause);
    // There is no cross for it, so the chip says it itself.
    Q_EMIT chipsOf(pause).first()->removeRequested(QStringLiteral("hold"));
    turnOfTheLoop();
    EXPECT_EQ(phrasesOf(pause), QStringList(QStringLiteral("pause")));
    EXPECT_EQ(stored("builtInTriggerOverrides").toByteArray(), QByteArray(R"({"pause":["pause"]})"));
}

TEST_F(CommandsSettingsTest, Reset_BringsTheDefaultsBack) {
    controller().setBuiltInTriggerOverrides({{QStringLiteral("pause"), {QStringLiteral("hold")}},
                                             {QStringLiteral("stop"), {QStringLiteral("halt")}}});
    show();
    auto& pause = row(VoiceCommand::pause);
    EXPECT_EQ(phrasesOf(pause), QStringList(QStringLiteral("hold")));
    click(find<Button>(pause, "reset"));
    EXPECT_EQ(phrasesOf(pause), triggers(VoiceCommand::pause));
    EXPECT_EQ(chipsOf(pause).first()->tint(), NamedColor::Blue);
    EXPECT_FALSE(find<Button>(pause, "reset").isVisible());
    EXPECT_EQ(stored("builtInTriggerOverrides").toByteArray(), QByteArray(R"({"stop":["halt"]})"));
}

TEST_F(CommandsSettingsTest, Overrides_AreThereAfterARestart) {
    show();
    addTrigger(row(VoiceCommand::play), QStringLiteral("go"));
    restart();
    EXPECT_TRUE(phrasesOf(row(VoiceCommand::play)).contains(QStringLiteral("go")));
}

TEST_F(CommandsSettingsTest, AnotherCategory_ForgetsTheTriggerEditor) {
    show();
    click(find<Button>(row(VoiceCommand::play), "pencil"));
    categories().setCurrentRow(1);
    categories().setCurrentRow(0);
    turnOfTheLoop();
    EXPECT_FALSE(row(VoiceCommand::play).isShowingTriggerEditor());
}

TEST_F(CommandsSettingsTest, EditTriggers_GoesToTheCommand) {
    show();
    click(*commands().findChild<QRadioButton*>(QStringLiteral("Custom")));
    view->setSelectedTab(SettingsView::About);
    view->editTriggers(VoiceCommand::stopPlayback);
    turnOfTheLoop();
    EXPECT_EQ(view->selectedTab(), 1);
    EXPECT_EQ(commands().panel(), Panel::builtIn);
    auto& wanted = row(VoiceCommand::stopPlayback);
    EXPECT_TRUE(wanted.isShowingTriggerEditor());
    auto& field = find<TextField>(wanted, "newTrigger");
    EXPECT_TRUE(field.hasFocus());
    const auto* area = commands().findChild<BuiltInCommandsPanel*>()->findChild<QScrollArea*>();
    const QRect place(field.mapTo(area->viewport(), QPoint(0, 0)), field.size());
    EXPECT_TRUE(area->viewport()->rect().contains(place)) << place.top() << ' ' << place.bottom();
}

TEST_F(CommandsSettingsTest, EditTriggersBeforeTheWindowIsShown_GoesThereToo) {
    view.emplace(controller(), layout());
    view->editTriggers(VoiceCommand::stopPlayback);
    open(*view);
    auto& field = find<TextField>(row(VoiceCommand::stopPlayback), "newTrigger");
    EXPECT_TRUE(field.isVisible());
    const auto* area = commands().findChild<BuiltInCommandsPanel*>()->findChild<QScrollArea*>();
    EXPECT_TRUE(
        area->viewport()->rect().contains(QRect(field.mapTo(area->viewport(), QPoint(0, 0)), field.size())));
}

TEST_F(CommandsSettingsTest, NoCustomCommands_SaysHowToHaveOne) {
    showCustom({});
    EXPECT_TRUE(find<QWidget>(*view, "emptyState").isVisible());
    EXPECT_FALSE(list().isVisible());
    QStringList texts;
    for (const auto* label : find<QWidget>(*view, "emptyState").findChildren<Label*>()) {
        texts += label->text();
    }
    EXPECT_EQ(texts,
              QStringList({QStringLiteral("No custom commands yet"),
                           QStringLiteral("Add a command to map a voice phrase to any Logic Pro keyboard "
                                          "shortcut.")}));
}

TEST_F(CommandsSettingsTest, CustomRow_ShowsItsCommand) {
    showCustom(fourCommands());
    EXPECT_TRUE(list().isVisible());
    auto& row = customRow(1);
    EXPECT_EQ(find<Label>(row, "name").text(), QStringLiteral("B"));
    EXPECT_EQ(find<PhraseStrip>(row, "triggers").phrases(),
              QStringList({QStringLiteral("b"), QStringLiteral("bee")}));
    EXPECT_EQ(find<Label>(row, "key").text(), QStringLiteral("⌘D"));
    EXPECT_TRUE(find<Switch>(row, "enabled").isChecked());
}

TEST_F(CommandsSettingsTest, NewCommand_IsAppendedAndStored) {
    showCustom({});
    click(find<Button>(*view, "addCommand"));
    ASSERT_NE(editor(), nullptr);
    QTest::keyClicks(&find<TextField>(*editor(), "name"), QStringLiteral("Mixer"));
    auto& trigger = find<TextField>(*editor(), "newTrigger");
    trigger.setFocus();
    QTest::keyClicks(&trigger, QStringLiteral("Open"));
    QTest::keyClick(&trigger, Qt::Key_Return);
    click(find<PillButton>(*editor(), "pill"));
    press({7, Qt::Key_X, Qt::ControlModifier});
    release({7, Qt::Key_X});
    click(find<Button>(*editor(), "save"));
    EXPECT_EQ(editor(), nullptr);
    ASSERT_TRUE(storedCommands());
    ASSERT_EQ(storedCommands()->size(), 1);
    EXPECT_EQ(storedCommands()->first(), controller().customCommands().first());
    const QString id = controller().customCommands().first().id.toString(QUuid::WithoutBraces).toUpper();
    EXPECT_EQ(
        QString::fromUtf8(stored("customCommands").toByteArray()),
        QStringLiteral(R"([{"id":"%1","name":"Mixer","triggers":["open"],"capturedKey":{"keyCode":7,)"
                       R"("modifierFlags":1048576,"displayString":"⌘X","appleScript":%2},"isEnabled":true}])")
            .arg(id,
                 QStringLiteral(R"("tell application \"System Events\"\n    tell process \"Logic Pro\"\n )"
                                R"(       set frontmost to true\n        key code 7 using {command down}\n)"
                                R"(    end tell\nend tell")")));
    EXPECT_TRUE(list().isVisible());
    restart();
    EXPECT_EQ(names(), QStringList(QStringLiteral("Mixer")));
}

TEST_F(CommandsSettingsTest, EditedCommand_KeepsItsPlace) {
    showCustom(fourCommands());
    click(find<Button>(customRow(1), "pencil"));
    ASSERT_NE(editor(), nullptr);
    find<TextField>(*editor(), "name").setText(QStringLiteral("Bee"));
    click(find<Button>(*editor(), "save"));
    EXPECT_EQ(names(), QStringList({QStringLiteral("A"), QStringLiteral("Bee"), QStringLiteral("C"),
                                    QStringLiteral("D")}));
    EXPECT_EQ(storedCommands(), controller().customCommands());
    EXPECT_EQ(find<Label>(customRow(1), "name").text(), QStringLiteral("Bee"));
}

TEST_F(CommandsSettingsTest, CommandDeletedMeanwhile_IsAppendedWhenSaved) {
    showCustom(fourCommands());
    click(find<Button>(customRow(0), "pencil"));
    CustomCommandList rest = controller().customCommands();
    const CustomCommand first = rest.takeFirst();
    controller().setCustomCommands(rest);
    click(find<Button>(*editor(), "save"));
    EXPECT_EQ(controller().customCommands().last(), first);
}

TEST_F(CommandsSettingsTest, Switch_IsInForceButNotStored) {
    showCustom(fourCommands());
    click(find<Switch>(customRow(2), "enabled"));
    EXPECT_FALSE(controller().customCommands().at(2).isEnabled);
    EXPECT_TRUE(storedCommands()->at(2).isEnabled);
    EXPECT_FALSE(find<Switch>(customRow(2), "enabled").isChecked());
    restart();
    EXPECT_TRUE(controller().customCommands().at(2).isEnabled) << "lost, since nothing else was changed";
}

TEST_F(CommandsSettingsTest, Switch_ReachesTheStoreWithTheNextChange) {
    showCustom(fourCommands());
    click(find<Switch>(customRow(2), "enabled"));
    clickRow(0);
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_EQ(storedCommands()->size(), 3);
    EXPECT_FALSE(storedCommands()->at(1).isEnabled);
}

TEST_F(CommandsSettingsTest, SwitchUnderTheKeyboard_KeepsIt) {
    showCustom(fourCommands());
    auto& toggle = find<Switch>(customRow(1), "enabled");
    toggle.setFocus();
    QTest::keyClick(&toggle, Qt::Key_Space);
    turnOfTheLoop();
    EXPECT_FALSE(controller().customCommands().at(1).isEnabled);
    EXPECT_TRUE(toggle.hasFocus());
    EXPECT_FALSE(toggle.isChecked());
}

TEST_F(CommandsSettingsTest, DeleteKey_DeletesTheSelection) {
    showCustom(fourCommands());
    clickRow(1);
    clickRow(3, Qt::ControlModifier);
    EXPECT_EQ(list().selectedRows(), QList<int>({1, 3}));
    QTest::keyClick(&list(), Qt::Key_Delete);
    turnOfTheLoop();
    EXPECT_EQ(names(), QStringList({QStringLiteral("A"), QStringLiteral("C")}));
    EXPECT_EQ(storedCommands(), controller().customCommands());
    EXPECT_EQ(list().selectedRows(), QList<int>({1})) << "the next one";
    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&list(), Qt::Key_Backspace);
    turnOfTheLoop();
    EXPECT_TRUE(controller().customCommands().isEmpty());
    EXPECT_EQ(stored("customCommands").toByteArray(), QByteArray("[]"));
    EXPECT_TRUE(find<QWidget>(*view, "emptyState").isVisible());
}

TEST_F(CommandsSettingsTest, DeleteKeyWithoutASelection_DeletesNothing) {
    showCustom(fourCommands());
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(names().size(), 4);
}

TEST_F(CommandsSettingsTest, TwoCommandsOfOneIdentity_AreDeletedOneByOne) {
    CustomCommandList twins = fourCommands();
    twins[2].id = twins[1].id;
    showCustom(twins);
    clickRow(2);
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("D")}));
}

TEST_F(CommandsSettingsTest, ContextMenu_EditsAndDeletes) {
    showCustom(fourCommands());
    const QPoint place = list().rowRect(2).center();
    QTest::mouseClick(list().viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent wish(QContextMenuEvent::Mouse, place, list().viewport()->mapToGlobal(place));
    QApplication::sendEvent(list().viewport(), &wish);
    auto* menu = view->findChild<QMenu*>(QStringLiteral("rowMenu"));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(list().selectedRows(), QList<int>({2}));
    ASSERT_EQ(menu->actions().size(), 2);
    menu->actions().at(1)->trigger();
    turnOfTheLoop();
    EXPECT_EQ(names(), QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("D")}));
    EXPECT_EQ(storedCommands(), controller().customCommands());
    menu->actions().at(0)->trigger();
    EXPECT_EQ(editor(), nullptr) << "it is gone";
    menu->close();
}

TEST_F(CommandsSettingsTest, ContextMenuOverAListThatChanges_DeletesWhatItWasOpenedFor) {
    CustomCommandList commands = fourCommands();
    showCustom(commands);
    const QPoint place = list().rowRect(2).center();
    QTest::mouseClick(list().viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent wish(QContextMenuEvent::Mouse, place, list().viewport()->mapToGlobal(place));
    QApplication::sendEvent(list().viewport(), &wish);
    auto* menu = view->findChild<QMenu*>(QStringLiteral("rowMenu"));
    ASSERT_NE(menu, nullptr);
    commands.removeFirst();
    controller().setCustomCommands(commands);
    turnOfTheLoop();
    menu->actions().at(1)->trigger();
    turnOfTheLoop();
    EXPECT_EQ(names(), QStringList({QStringLiteral("B"), QStringLiteral("D")}));
    menu->actions().at(1)->trigger();
    turnOfTheLoop();
    EXPECT_EQ(names(), QStringList({QStringLiteral("B"), QStringLiteral("D")})) << "it is gone";
    menu->close();
}

TEST_F(CommandsSettingsTest, ReturnAndDoubleClick_Edit) {
    showCustom(fourCommands());
    clickRow(0);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Return);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(find<TextField>(*editor(), "name").text(), QStringLiteral("B"));
    click(find<Button>(*editor(), "cancel"));
    clickRow(3);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, list().rowRect(3).center());
    QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, list().rowRect(3).center());
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(find<TextField>(*editor(), "name").text(), QStringLiteral("D"));
}

TEST_F(CommandsSettingsTest, EditCustomCommand_OpensItsEditor) {
    controller().setCustomCommands(fourCommands());
    show();
    view->setSelectedTab(SettingsView::General);
    view->editCustomCommand(controller().customCommands().at(2).id);
    EXPECT_EQ(view->selectedTab(), 1);
    EXPECT_EQ(commands().panel(), Panel::custom);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(find<TextField>(*editor(), "name").text(), QStringLiteral("C"));
    view->editCustomCommand(controller().customCommands().at(0).id);
    EXPECT_EQ(view->findChildren<CustomCommandEditorView*>().size(), 1) << "one sheet at a time";
}

TEST_F(CommandsSettingsTest, EditCustomCommandThatIsGone_ShowsThePanel) {
    show();
    view->editCustomCommand(QUuid::createUuid());
    EXPECT_EQ(commands().panel(), Panel::custom);
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(CommandsSettingsTest, ManyCommands_MakeOnlyTheRowsInSight) {
    CustomCommandList many;
    for (int index = 0; index < 500; ++index) {
        QStringList phrases;
        for (int phrase = 0; phrase < 10; ++phrase) {
            phrases += QStringLiteral("phrase %1 of %2").arg(phrase).arg(index);
        }
        many += makeCommand(QStringLiteral("Command %1").arg(index), phrases);
    }
    showCustom(many);
    EXPECT_EQ(list().rowCount(), 500);
    EXPECT_LT(view->findChildren<CustomCommandSettingsRow*>().size(), 20);
    list().scrollToRow(499);
    EXPECT_EQ(find<Label>(customRow(499), "name").text(), QStringLiteral("Command 499"));
    EXPECT_LT(view->findChildren<CustomCommandSettingsRow*>().size(), 20);
}

TEST_F(CommandsSettingsTest, TextsOfAnyKind_KeepTheRowsInShape) {
    CustomCommandList commands_ = fourCommands();
    commands_[1].name = QStringLiteral("<b>B</b> שלום ").repeated(2000);
    commands_[1].triggers = {QString(10000, u'x'), QStringLiteral("a\nb")};
    commands_[1].capturedKey.displayString = QString(3000, u'⌘');
    showCustom(commands_);
    EXPECT_EQ(list().rowRect(1).height(), list().rowRect(0).height());
    EXPECT_EQ(find<Button>(customRow(1), "pencil").mapTo(&*view, QPoint(0, 0)).x(),
              find<Button>(customRow(0), "pencil").mapTo(&*view, QPoint(0, 0)).x());
    EXPECT_GT(find<Label>(customRow(1), "name").width(), 100);
}

} // namespace
} // namespace brivandel::testing
