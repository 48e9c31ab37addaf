#include "settings/CommandsSettingsTest.h"

namespace brivandel::testing {

namespace {

using Panel = CommandsSettingsView::CommandPanel;

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
    view.emplace(controller(), layout(), advice());
    view->editTriggers(VoiceCommand::stopPlayback);
    open(*view);
    auto& field = find<TextField>(row(VoiceCommand::stopPlayback), "newTrigger");
    EXPECT_TRUE(field.isVisible());
    const auto* area = commands().findChild<BuiltInCommandsPanel*>()->findChild<QScrollArea*>();
    EXPECT_TRUE(
        area->viewport()->rect().contains(QRect(field.mapTo(area->viewport(), QPoint(0, 0)), field.size())));
}

} // namespace

} // namespace brivandel::testing
