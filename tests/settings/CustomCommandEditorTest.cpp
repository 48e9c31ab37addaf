#include "settings/CustomCommandEditorView.h"
#include "settings/KeyCapturePillView.h"
#include "settings/SettingsTest.h"
#include "settings/TriggerPhrase.h"
#include "settings/TriggerTagsGrid.h"
#include "support/ScriptedListening.h"
#include "widgets/Alert.h"
#include "widgets/Button.h"
#include "widgets/Chip.h"
#include "widgets/FittingScrollArea.h"
#include "widgets/Label.h"
#include "widgets/PillButton.h"
#include "widgets/TextField.h"

#include <QClipboard>
#include <QPointer>
#include <QScrollBar>

namespace brivandel::testing {

namespace {

class CustomCommandEditorTest : public ::testing::Test {
protected:
    void SetUp() override {
        window.resize(500, 500);
        window.show();
        window.activateWindow();
    }
    void edit(std::optional<CustomCommand> existing = std::nullopt) {
        editor = new CustomCommandEditorView(
            std::move(existing), [this](const CustomCommand& command) { saved += command; }, layout, advice,
            &window);
        editor->open();
        editor->activateWindow();
        turnOfTheLoop();
    }
    template <typename Widget>
    Widget& find(const char* name) {
        auto* found = editor->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    TextField& name() { return find<TextField>("name"); }
    TextField& newTrigger() { return find<TextField>("newTrigger"); }
    Button& add() { return find<Button>("add"); }
    KeyCapturePillView& pill() { return find<KeyCapturePillView>("shortcut"); }
    void click(QWidget& widget) {
        QTest::mouseClick(&widget, Qt::LeftButton);
        turnOfTheLoop();
    }
    void save() { click(find<Button>("save")); }
    void type(const QString& text) {
        newTrigger().setFocus();
        QTest::keyClicks(&newTrigger(), text);
    }
    void submit() {
        QTest::keyClick(&newTrigger(), Qt::Key_Return);
        turnOfTheLoop();
    }
    void capture(const Key& key) {
        click(find<PillButton>("pill"));
        press(key);
        release(key);
        turnOfTheLoop();
    }
    QStringList chips() {
        QStringList phrases;
        for (const auto* chip : editor->findChildren<Chip*>()) {
            if (!chip->isHidden()) {
                phrases += chip->phrase();
            }
        }
        return phrases;
    }
    Button& cross(const QString& phrase) {
        for (const auto* chip : editor->findChildren<Chip*>()) {
            if (chip->phrase() == phrase) {
                return *chip->findChild<Button*>(QStringLiteral("remove"));
            }
        }
        ADD_FAILURE() << "no chip: " << phrase.toStdString();
        return add();
    }
    Alert* alert() { return editor->findChild<Alert*>(); }
    CustomCommand existing() {
        return {.id = QUuid::createUuid(),
                .name = QStringLiteral("Mixer"),
                .triggers = {QStringLiteral("open mixer"), QStringLiteral("mixer"), QStringLiteral("faders")},
                .capturedKey = {.keyCode = 7,
                                .modifierFlags = 0x100000,
                                .displayString = QStringLiteral("as it was"),
                                .appleScript = QStringLiteral("as it was, too")},
                .isEnabled = false};
    }

    ScriptedKeyboardLayout layout;
    ScriptedListening listening;
    LivePhraseAdvice advice{listening.controller,
                            {*listening.scripted.platform->mainQueue, *listening.scripted.platform->workQueue,
                             listening.scripted.platform->pronunciations}};
    QWidget window;
    QPointer<CustomCommandEditorView> editor;
    CustomCommandList saved;
};

TEST_F(CustomCommandEditorTest, NewCommand_StartsEmpty) {
    edit();
    EXPECT_EQ(find<Label>("title").text(), QStringLiteral("New Custom Command"));
    EXPECT_EQ(editor->size(), QSize(440, 480));
    EXPECT_TRUE(editor->isModal());
    EXPECT_TRUE(name().text().isEmpty());
    EXPECT_TRUE(name().hasFocus());
    EXPECT_EQ(name().placeholderText(), QStringLiteral("e.g. Toggle Mixer"));
    EXPECT_EQ(newTrigger().placeholderText(), QStringLiteral("Add phrase..."));
    EXPECT_TRUE(chips().isEmpty());
    EXPECT_FALSE(editor->findChild<TriggerTagsGrid*>()->isVisible());
    EXPECT_FALSE(pill().capturedKey());
    EXPECT_FALSE(add().isEnabled());
    QStringList texts;
    for (const auto* label : editor->findChildren<Label*>()) {
        if (label->isVisible()) {
            texts += label->text();
        }
    }
    EXPECT_EQ(texts,
              QStringList({QStringLiteral("New Custom Command"), QStringLiteral("Command Name"),
                           QStringLiteral("Trigger Phrases"),
                           QStringLiteral("What you say after the wake word to activate this command"),
                           QStringLiteral("Keyboard Shortcut"),
                           QStringLiteral("The key combination sent to Logic Pro when this command fires")}));
}

TEST_F(CustomCommandEditorTest, ExistingCommand_IsLoaded) {
    edit(existing());
    EXPECT_EQ(find<Label>("title").text(), QStringLiteral("Edit Command"));
    EXPECT_EQ(name().text(), QStringLiteral("Mixer"));
    EXPECT_EQ(chips(), existing().triggers);
    EXPECT_EQ(pill().capturedKey(), existing().capturedKey);
    EXPECT_TRUE(newTrigger().text().isEmpty());
}

TEST_F(CustomCommandEditorTest, Return_AddsThePhraseTrimmedAndInLowerCase) {
    edit();
    type(QStringLiteral("  Open Mixer \t"));
    submit();
    EXPECT_EQ(chips(), QStringList(QStringLiteral("open mixer")));
    EXPECT_TRUE(newTrigger().text().isEmpty());
    type(QStringLiteral("OPEN MIXER"));
    submit();
    EXPECT_EQ(chips().size(), 1);
    EXPECT_EQ(newTrigger().text(), QStringLiteral("OPEN MIXER"));
    EXPECT_TRUE(saved.isEmpty()) << "Return in this field is no Save";
    EXPECT_EQ(alert(), nullptr);
}

TEST_F(CustomCommandEditorTest, AddButton_AddsAtTheEnd) {
    edit(existing());
    type(QStringLiteral("Show"));
    EXPECT_TRUE(add().isEnabled());
    click(add());
    EXPECT_EQ(chips(), existing().triggers + QStringList(QStringLiteral("show")));
    EXPECT_FALSE(add().isEnabled());
}

TEST_F(CustomCommandEditorTest, OnlySpaces_AreNoPhrase) {
    edit();
    type(QStringLiteral("  \t "));
    EXPECT_FALSE(add().isEnabled());
    submit();
    EXPECT_TRUE(chips().isEmpty());
    EXPECT_FALSE(newTrigger().text().isEmpty());
}

TEST_F(CustomCommandEditorTest, Cross_RemovesItsPhraseOnly) {
    edit(existing());
    click(cross(QStringLiteral("mixer")));
    EXPECT_EQ(chips(), QStringList({QStringLiteral("open mixer"), QStringLiteral("faders")}));
    click(cross(QStringLiteral("open mixer")));
    click(cross(QStringLiteral("faders")));
    EXPECT_TRUE(chips().isEmpty());
}

TEST_F(CustomCommandEditorTest, PhraseThatStandsTwice_IsRemovedTwice) {
    CustomCommand command = existing();
    command.triggers += QStringLiteral("mixer");
    edit(command);
    EXPECT_EQ(chips().size(), 4);
    click(cross(QStringLiteral("mixer")));
    EXPECT_EQ(chips(), QStringList({QStringLiteral("open mixer"), QStringLiteral("faders")}));
}

TEST_F(CustomCommandEditorTest, SaveWithNothing_MissesTheTriggerOnly) {
    edit();
    save();
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->findChild<Label*>(QStringLiteral("title"))->text(),
              QStringLiteral("No trigger phrase"));
    EXPECT_EQ(alert()->findChild<Label*>(QStringLiteral("message"))->text(),
              QStringLiteral("Please add at least one trigger phrase."));
    EXPECT_EQ(editor->findChildren<Alert*>().size(), 1);
    QTest::keyClick(alert(), Qt::Key_Escape);
    turnOfTheLoop();
    EXPECT_EQ(alert(), nullptr);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_TRUE(saved.isEmpty());
}

TEST_F(CustomCommandEditorTest, SaveWithoutAKey_MissesIt) {
    edit();
    name().setText(QStringLiteral("Kept"));
    type(QStringLiteral("open"));
    submit();
    type(QStringLiteral("half"));
    save();
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->findChild<Label*>(QStringLiteral("title"))->text(),
              QStringLiteral("No keyboard shortcut"));
    EXPECT_EQ(alert()->findChild<Label*>(QStringLiteral("message"))->text(),
              QStringLiteral("Please capture a keyboard shortcut for this command."));
    EXPECT_EQ(alert()->findChild<Button*>(QStringLiteral("ok"))->text(), QStringLiteral("OK"));
    click(*alert()->findChild<Button*>(QStringLiteral("ok")));
    EXPECT_EQ(alert(), nullptr);
    EXPECT_EQ(name().text(), QStringLiteral("Kept"));
    EXPECT_EQ(newTrigger().text(), QStringLiteral("half"));
    EXPECT_EQ(chips(), QStringList(QStringLiteral("open")));
    EXPECT_TRUE(saved.isEmpty());
}

TEST_F(CustomCommandEditorTest, NewCommand_IsSavedWithAFreshIdentity) {
    edit();
    QTest::keyClicks(&name(), QStringLiteral(" Open the Mixer\t"));
    type(QStringLiteral("mixer"));
    submit();
    capture({7, Qt::Key_X, Qt::ControlModifier});
    save();
    ASSERT_EQ(saved.size(), 1);
    EXPECT_FALSE(saved[0].id.isNull());
    EXPECT_EQ(saved[0].name, QStringLiteral("Open the Mixer"));
    EXPECT_EQ(saved[0].triggers, QStringList(QStringLiteral("mixer")));
    EXPECT_EQ(saved[0].capturedKey, captureKey(7, commandModifier, layout));
    EXPECT_TRUE(saved[0].isEnabled);
    EXPECT_EQ(editor, nullptr) << "it has closed";
}

TEST_F(CustomCommandEditorTest, NoName_IsTheFirstPhrase) {
    for (const auto& empty : {QString(), QStringLiteral(" \t ")}) {
        edit(existing());
        name().setText(empty);
        save();
        EXPECT_EQ(saved.takeLast().name, QStringLiteral("open mixer"));
    }
}

TEST_F(CustomCommandEditorTest, EditedCommand_KeepsIdentityKeyAndSwitch) {
    const CustomCommand before = existing();
    edit(before);
    name().setText(QStringLiteral("Other"));
    save();
    ASSERT_EQ(saved.size(), 1);
    CustomCommand wanted = before;
    wanted.name = QStringLiteral("Other");
    EXPECT_EQ(saved[0], wanted);
}

TEST_F(CustomCommandEditorTest, ReturnInTheName_Saves) {
    edit(existing());
    name().setFocus();
    QTest::keyClick(&name(), Qt::Key_Return);
    EXPECT_EQ(saved.size(), 1);
}

TEST_F(CustomCommandEditorTest, CancelAndEscapeAndClosing_SaveNothing) {
    edit(existing());
    click(find<Button>("cancel"));
    EXPECT_EQ(editor, nullptr);
    edit(existing());
    QTest::keyClick(&name(), Qt::Key_Escape);
    turnOfTheLoop();
    EXPECT_EQ(editor, nullptr);
    edit(existing());
    window.close();
    turnOfTheLoop();
    EXPECT_EQ(editor, nullptr);
    EXPECT_TRUE(saved.isEmpty());
}

TEST_F(CustomCommandEditorTest, EscapeWhileCapturing_IsTheShortcut) {
    edit(existing());
    capture({53, Qt::Key_Escape});
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(pill().capturedKey()->keyCode, 53);
}

TEST_F(CustomCommandEditorTest, TabOrder_IsThatOfTheSheet) {
    edit(existing());
    type(QStringLiteral("more"));
    name().setFocus();
    QStringList visited;
    for (int step = 0; step < 9; ++step) {
        const QWidget* here = QApplication::focusWidget();
        visited += here->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited,
              QStringList({QStringLiteral("name"), QStringLiteral("remove"), QStringLiteral("remove"),
                           QStringLiteral("remove"), QStringLiteral("newTrigger"), QStringLiteral("add"),
                           QStringLiteral("pill"), QStringLiteral("cancel"), QStringLiteral("save")}));
}

TEST_F(CustomCommandEditorTest, PhrasesOfAnyKind_AreStoredWholeAndKeepTheLayout) {
    const QStringList phrases = {QStringLiteral("\"quotes\" & <b>markup</b>"),
                                 QStringLiteral("👩‍🎤 emoji"),
                                 QStringLiteral("שלום עולם"),
                                 QStringLiteral("e\u0301\u0302\u0303\u0304"),
                                 QString(10000, u'x'),
                                 QStringLiteral("line\nbreak")};
    edit();
    for (const QString& phrase : phrases) {
        QGuiApplication::clipboard()->setText(phrase);
        newTrigger().paste();
        submit();
    }
    EXPECT_EQ(chips(), phrases);
    for (const auto* chip : editor->findChildren<Chip*>()) {
        EXPECT_LE(chip->width(), 392);
    }
    const QRect buttons = find<Button>("save").geometry();
    EXPECT_TRUE(editor->rect().contains(buttons));
    EXPECT_LT(pill().mapTo(&*editor, QPoint(0, pill().height())).y(), buttons.top());
    capture({7, Qt::Key_X});
    save();
    ASSERT_EQ(saved.size(), 1);
    EXPECT_EQ(saved[0].triggers, phrases);
    EXPECT_EQ(saved[0].name, phrases[0]);
}

TEST_F(CustomCommandEditorTest, LongName_IsStoredWhole) {
    CustomCommand command = existing();
    command.name = QString(100000, u'n');
    edit(command);
    save();
    EXPECT_EQ(saved[0].name.size(), 100000);
}

TEST_F(CustomCommandEditorTest, ManyPhrases_ScrollAndShowTheNewest) {
    CustomCommand command = existing();
    for (int phrase = 0; phrase < 40; ++phrase) {
        command.triggers += QStringLiteral("phrase number %1").arg(phrase);
    }
    edit(command);
    auto& area = *editor->findChild<FittingScrollArea*>();
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
    type(QStringLiteral("newest"));
    submit();
    EXPECT_EQ(area.verticalScrollBar()->value(), area.verticalScrollBar()->maximum());
    EXPECT_TRUE(editor->rect().contains(find<Button>("save").geometry()));
}

TEST_F(CustomCommandEditorTest, FewPhrases_DoNotScroll) {
    edit(existing());
    auto& area = *editor->findChild<FittingScrollArea*>();
    EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(area.height(), area.widget()->heightForWidth(area.width()));
}

TEST(TriggerPhrase, SpacesAndTabs_AreTakenAway) {
    EXPECT_EQ(triggerPhrase(QStringLiteral(" \tOpen  Mixer\t ")), QStringLiteral("open  mixer"));
    EXPECT_EQ(triggerPhrase(QStringLiteral("\u00a0\u2003X\u3000")), QStringLiteral("x"))
        << "Unicode's spaces";
    EXPECT_EQ(triggerPhrase(QStringLiteral("\nX\n")), QStringLiteral("\nx\n")) << "line breaks stay";
    EXPECT_EQ(triggerPhrase(QStringLiteral("ÀÉ")), QStringLiteral("àé"));
    EXPECT_TRUE(triggerPhrase(QStringLiteral("  \t")).isEmpty());
    EXPECT_TRUE(triggerPhrase({}).isEmpty());
}

} // namespace
} // namespace brivandel::testing
