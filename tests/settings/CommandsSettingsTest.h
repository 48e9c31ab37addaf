#pragma once

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

#include <optional>

namespace brivandel::testing {

/// The commands tab of the settings, by clicks and typed keys, over a real file of settings.
class CommandsSettingsTest : public SettingsTest {
protected:
    void show() {
        view.emplace(controller(), layout(), advice());
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

} // namespace brivandel::testing
