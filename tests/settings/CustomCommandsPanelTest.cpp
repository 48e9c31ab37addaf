#include "settings/CommandsSettingsTest.h"

namespace brivandel::testing {

namespace {

using Panel = CommandsSettingsView::CommandPanel;
using CustomCommandsPanelTest = CommandsSettingsTest;

TEST_F(CustomCommandsPanelTest, NoCustomCommands_SaysHowToHaveOne) {
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

TEST_F(CustomCommandsPanelTest, CustomRow_ShowsItsCommand) {
    showCustom(fourCommands());
    EXPECT_TRUE(list().isVisible());
    auto& row = customRow(1);
    EXPECT_EQ(find<Label>(row, "name").text(), QStringLiteral("B"));
    EXPECT_EQ(find<PhraseStrip>(row, "triggers").phrases(),
              QStringList({QStringLiteral("b"), QStringLiteral("bee")}));
    EXPECT_EQ(find<Label>(row, "key").text(), QStringLiteral("⌘D"));
    EXPECT_TRUE(find<Switch>(row, "enabled").isChecked());
}

TEST_F(CustomCommandsPanelTest, NewCommand_IsAppendedAndStored) {
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

TEST_F(CustomCommandsPanelTest, EditedCommand_KeepsItsPlace) {
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

TEST_F(CustomCommandsPanelTest, CommandDeletedMeanwhile_IsAppendedWhenSaved) {
    showCustom(fourCommands());
    click(find<Button>(customRow(0), "pencil"));
    CustomCommandList rest = controller().customCommands();
    const CustomCommand first = rest.takeFirst();
    controller().setCustomCommands(rest);
    click(find<Button>(*editor(), "save"));
    EXPECT_EQ(controller().customCommands().last(), first);
}

TEST_F(CustomCommandsPanelTest, Switch_IsInForceButNotStored) {
    showCustom(fourCommands());
    click(find<Switch>(customRow(2), "enabled"));
    EXPECT_FALSE(controller().customCommands().at(2).isEnabled);
    EXPECT_TRUE(storedCommands()->at(2).isEnabled);
    EXPECT_FALSE(find<Switch>(customRow(2), "enabled").isChecked());
    restart();
    EXPECT_TRUE(controller().customCommands().at(2).isEnabled) << "lost, since nothing else was changed";
}

TEST_F(CustomCommandsPanelTest, Switch_ReachesTheStoreWithTheNextChange) {
    showCustom(fourCommands());
    click(find<Switch>(customRow(2), "enabled"));
    clickRow(0);
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_EQ(storedCommands()->size(), 3);
    EXPECT_FALSE(storedCommands()->at(1).isEnabled);
}

TEST_F(CustomCommandsPanelTest, SwitchUnderTheKeyboard_KeepsIt) {
    showCustom(fourCommands());
    auto& toggle = find<Switch>(customRow(1), "enabled");
    toggle.setFocus();
    QTest::keyClick(&toggle, Qt::Key_Space);
    turnOfTheLoop();
    EXPECT_FALSE(controller().customCommands().at(1).isEnabled);
    EXPECT_TRUE(toggle.hasFocus());
    EXPECT_FALSE(toggle.isChecked());
}

TEST_F(CustomCommandsPanelTest, DeleteKey_DeletesTheSelection) {
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

TEST_F(CustomCommandsPanelTest, DeleteKeyWithoutASelection_DeletesNothing) {
    showCustom(fourCommands());
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(names().size(), 4);
}

TEST_F(CustomCommandsPanelTest, TwoCommandsOfOneIdentity_AreDeletedOneByOne) {
    CustomCommandList twins = fourCommands();
    twins[2].id = twins[1].id;
    showCustom(twins);
    clickRow(2);
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("D")}));
}

TEST_F(CustomCommandsPanelTest, ContextMenu_EditsAndDeletes) {
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

TEST_F(CustomCommandsPanelTest, ContextMenuOverAListThatChanges_DeletesWhatItWasOpenedFor) {
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

TEST_F(CustomCommandsPanelTest, ReturnAndDoubleClick_Edit) {
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

TEST_F(CustomCommandsPanelTest, EditCustomCommand_OpensItsEditor) {
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

TEST_F(CustomCommandsPanelTest, EditCustomCommandThatIsGone_ShowsThePanel) {
    show();
    view->editCustomCommand(QUuid::createUuid());
    EXPECT_EQ(commands().panel(), Panel::custom);
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(CustomCommandsPanelTest, ManyCommands_MakeOnlyTheRowsInSight) {
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

TEST_F(CustomCommandsPanelTest, TextsOfAnyKind_KeepTheRowsInShape) {
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
