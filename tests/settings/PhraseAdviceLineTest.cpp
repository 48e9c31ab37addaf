#include "settings/PhraseAdviceLine.h"

#include "settings/CommandsSettingsTest.h"

namespace brivandel::testing {

namespace {

class PhraseAdviceLineTest : public CommandsSettingsTest {
protected:
    static QString shown(const QWidget& parent) {
        const auto& label = find<Label>(parent, "advice");
        return label.isVisible() ? label.text() : QString();
    }
    static TextField& field(const QWidget& parent) { return find<TextField>(parent, "newTrigger"); }
    void type(QWidget& parent, const QString& text) {
        field(parent).clear();
        QTest::keyClicks(&field(parent), text);
        turnOfTheLoop();
        scripted().mainQueue.runDue();
        turnOfTheLoop();
    }
};

TEST_F(PhraseAdviceLineTest, BuiltInRow_AdvisesOnWhatIsTyped) {
    show();
    auto& play = row(VoiceCommand::play);
    click(find<Button>(play, "pencil"));
    EXPECT_EQ(shown(play), QString());
    type(play, QStringLiteral("Delete"));
    EXPECT_EQ(shown(play),
              QStringLiteral("“delete last take” begins the same way, so this waits a moment for the rest."));
    type(play, QStringLiteral("roll"));
    EXPECT_EQ(shown(play), QString());
}

TEST_F(PhraseAdviceLineTest, Advice_StopsNobody) {
    show();
    auto& play = row(VoiceCommand::play);
    addTrigger(play, QStringLiteral("go to"));
    EXPECT_TRUE(phrasesOf(play).contains(QStringLiteral("go to")));
    EXPECT_EQ(shown(play), QString()) << "nothing serious about it";
}

TEST_F(PhraseAdviceLineTest, Editor_AdvisesOnWhatIsTyped) {
    showCustom({});
    click(find<Button>(*view, "addCommand"));
    type(*editor(), QStringLiteral("display mixer"));
    EXPECT_EQ(shown(*editor()), QStringLiteral("Holds “play”, and is always heard as that."));
}

TEST_F(PhraseAdviceLineTest, Editor_NamesStoredPhrasesThatAreNeverHeard) {
    const CustomCommand command =
        makeCommand(QStringLiteral("Mixer"), {QStringLiteral("mixer"), QStringLiteral("display mixer")});
    showCustom({command});
    view->editCustomCommand(command.id);
    turnOfTheLoop();
    EXPECT_EQ(shown(*editor()),
              QStringLiteral("“display mixer”: Holds “play”, and is always heard as that."));
    click(*chipsOf(*editor()).at(1)->findChild<Button*>(QStringLiteral("remove")));
    EXPECT_EQ(shown(*editor()), QString());
}

TEST_F(PhraseAdviceLineTest, Sound_IsAdvisedOnOnceItIsKnown) {
    scripted().pronunciations.known = {
        {QStringLiteral("quantize"),
         {{QStringLiteral("quantize"), QStringLiteral("K W AA N T AY Z"), false}}}};
    showCustom({});
    click(find<Button>(*view, "addCommand"));
    type(*editor(), QStringLiteral("quantize"));
    EXPECT_EQ(shown(*editor()),
              QStringLiteral("“quantize” is in no dictionary; listened for as “kwahn-teyez”."));
}

TEST_F(PhraseAdviceLineTest, MoreThanTwo_ShowsTheFirstTwo) {
    const CustomCommand command =
        makeCommand(QStringLiteral("Three"),
                    {QStringLiteral("play one"), QStringLiteral("stop two"), QStringLiteral("undo three")});
    showCustom({command});
    view->editCustomCommand(command.id);
    turnOfTheLoop();
    EXPECT_EQ(shown(*editor()).count(u'\n'), 1);
    EXPECT_TRUE(shown(*editor()).startsWith(QStringLiteral("“play one”")));
}

TEST_F(PhraseAdviceLineTest, ChangedSettings_AreFollowed) {
    show();
    auto& play = row(VoiceCommand::play);
    click(find<Button>(play, "pencil"));
    type(play, QStringLiteral("mute"));
    EXPECT_EQ(shown(play), QString());
    controller().setCustomCommands({makeCommand(QStringLiteral("Drums"), {QStringLiteral("mute drums")})});
    turnOfTheLoop();
    EXPECT_TRUE(shown(play).startsWith(QStringLiteral("Because of it, “mute drums” of “Drums”")));
}

} // namespace

} // namespace brivandel::testing
