#include "platform/linux/applescript/FakeKeySender.h"
#include "platform/linux/applescript/LinuxScriptHost.h"
#include "platform/linux/applescript/ProgramScripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace brivandel {
namespace {

using namespace script;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NoChoice final : public StandInChoice {
public:
    [[nodiscard]] std::variant<StandIn, QString> choose(const FindProgram& /*find*/) const override {
        return QStringLiteral("A and B are running.");
    }
};

/// Scripts run against a workstation with keys of its own.
class TranslatedScriptTest : public ::testing::Test {
protected:
    TranslatedScriptTest() { desktop_.running = {QStringLiteral("Logic Pro"), QStringLiteral("daw")}; }

    QString run(const QString& source) {
        const StandIn standIn{TargetName{QStringLiteral("daw")}, QStringLiteral("Daw"),
                              std::make_shared<const KeyTable>(keys_)};
        return run(source, std::make_unique<FixedStandIn>(standIn));
    }
    /// The error's message; empty when there is none.
    QString run(const QString& source, std::unique_ptr<const StandInChoice> choice) {
        LinuxScriptHost host(std::make_unique<testing::FakeKeySender>(desktop_), std::move(choice),
                             std::make_unique<testing::VirtualTime>(desktop_.waited));
        const auto error = host.run(source);
        return error ? error->value(QString::fromUtf16(ScriptErrorKey::message)).toString() : QString();
    }
    void map(const Press& press, const std::variant<Steps, NothingOfTheKind>& to) {
        keys_.presses.emplace_back(press, to);
    }
    [[nodiscard]] std::vector<std::string> actions() const {
        std::vector<std::string> texts;
        for (const QString& action : desktop_.actions()) {
            texts.push_back(action.toStdString());
        }
        return texts;
    }

    testing::FakeDesktop desktop_;
    KeyTable keys_;
};

const Press record = Keystroke{QStringLiteral("r"), {}};

TEST_F(TranslatedScriptTest, PressWithAnEntry_IsSentAsTheEntryHasIt) {
    map(record, Steps{KeyCode{49, KeyModifier::Shift}, Keystroke{QStringLiteral("x"), {}}});
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("keystroke \"r\""))), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key shift+49 to daw", "key 'x' to daw"));
}

TEST_F(TranslatedScriptTest, PressWithoutAnEntry_IsSentAsItStands) {
    map(record, Steps{KeyCode{49, {}}});
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("keystroke \"r\" using {command down}"))),
              QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key command+'r' to daw"));
}

TEST_F(TranslatedScriptTest, PressOfTheSameKeyByItsPlace_IsSentAsItStands) {
    map(record, Steps{KeyCode{49, {}}});
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("key code 15"))), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 15 to daw"));
}

TEST_F(TranslatedScriptTest, NothingOfTheKind_FailsBeforeAnythingIsDone) {
    map(record, NothingOfTheKind{QStringLiteral("Daw does not record.")});
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("keystroke \"r\""))),
              QStringLiteral("System Events got an error: Daw does not record."));
    EXPECT_THAT(actions(), IsEmpty());
}

TEST_F(TranslatedScriptTest, AnotherProcess_IsSentItsKeysAsTheyStand) {
    map(record, Steps{KeyCode{49, {}}});
    desktop_.running += QStringLiteral("Other");
    QString source = testing::keystrokeScript(QStringLiteral("keystroke \"r\""));
    EXPECT_EQ(run(source.replace(QStringLiteral("Logic Pro"), QStringLiteral("Other"))), QString());
    EXPECT_THAT(actions(), ElementsAre("raise Other", "key 'r' to Other"));
}

TEST_F(TranslatedScriptTest, BarAndPlayback_GoByTheWorkstationsOwnSteps) {
    keys_.bar =
        BarSteps{{KeyCode{75, {}}, Keystroke{QStringLiteral("{bar}0"), {}}}, {KeyCode{96, {}}}, std::nullopt};
    map(KeyCode{36, {}}, Steps{KeyCode{1, {}}}); // which is for the command, not for the bar
    EXPECT_EQ(run(testing::barScript(12, testing::ThenPlay::Yes)), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 75 to daw", "key '1' to daw", "key '2' to daw",
                                       "key '0' to daw", "key 96 to daw"));
}

TEST_F(TranslatedScriptTest, BarWithoutSteps_GoesByTheScriptsOwn) {
    EXPECT_EQ(run(testing::barScript(7, testing::ThenPlay::No)), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 44 to daw", "key '7' to daw", "key 36 to daw"));
}

TEST_F(TranslatedScriptTest, NoBarInTheWorkstation_FailsBeforeAnythingIsDone) {
    keys_.bar = NothingOfTheKind{QStringLiteral("Daw has no bars.")};
    EXPECT_EQ(run(testing::barScript(7, testing::ThenPlay::Yes)),
              QStringLiteral("System Events got an error: Daw has no bars."));
    EXPECT_THAT(actions(), IsEmpty());
}

TEST_F(TranslatedScriptTest, KeysAfterTheBarThatAreNotPlayback_AreTranslatedAsPresses) {
    keys_.bar = BarSteps{{Keystroke{QStringLiteral("{bar}"), {}}}, {KeyCode{96, {}}}, std::nullopt};
    map(record, Steps{KeyCode{1, {}}});
    const QString bar = testing::barScript(7, testing::ThenPlay::No);
    EXPECT_EQ(run(bar + QStringLiteral("\nkeystroke \"r\"\nkeystroke \" \"")), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key '7' to daw", "key 1 to daw", "key ' ' to daw"));
}

TEST_F(TranslatedScriptTest, SpaceAfterPlaybackWasStarted_IsTranslatedAsAPress) {
    keys_.bar = BarSteps{{Keystroke{QStringLiteral("{bar}"), {}}}, {KeyCode{96, {}}}, std::nullopt};
    const QString bar = testing::barScript(7, testing::ThenPlay::Yes);
    EXPECT_EQ(run(bar + QStringLiteral("\nkeystroke \" \"")), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key '7' to daw", "key 96 to daw", "key ' ' to daw"));
}

TEST_F(TranslatedScriptTest, KeyAfterAnotherProgramWasActivated_IsSentAsItStands) {
    keys_.bar = BarSteps{{Keystroke{QStringLiteral("{bar}"), {}}}, {KeyCode{96, {}}}, std::nullopt};
    map(record, Steps{KeyCode{1, {}}});
    desktop_.running += QStringLiteral("Other");
    EXPECT_EQ(
        run(testing::barScript(7, testing::ThenPlay::No) +
            QStringLiteral("\ntell application \"Other\" to activate\nkeystroke \" \"\nkeystroke \"r\"")),
        QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key '7' to daw", "raise Other", "key ' ' to Other",
                                       "key 'r' to Other"));
}

TEST_F(TranslatedScriptTest, KeyAfterAnotherProcessCameToTheFront_IsSentAsItStands) {
    map(record, Steps{KeyCode{1, {}}});
    desktop_.running += QStringLiteral("Other");
    QString other = testing::keystrokeScript(QStringLiteral("keystroke \"r\""));
    other.replace(QStringLiteral("Logic Pro"), QStringLiteral("Other"));
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("keystroke \"r\"")) + u'\n' + other +
                  QStringLiteral("\nkeystroke \"r\"")),
              QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 1 to daw", "raise Other", "key 'r' to Other",
                                       "key 'r' to Other"));
}

TEST_F(TranslatedScriptTest, BarWithPlaces_IsFilledUpWithZeros) {
    keys_.bar = BarSteps{{Keystroke{QStringLiteral("{bar:3}.1"), {}}}, {}};
    EXPECT_EQ(run(testing::barScript(7, testing::ThenPlay::No)), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key '0' to daw", "key '0' to daw", "key '7' to daw",
                                       "key '.' to daw", "key '1' to daw"));
    EXPECT_EQ(withBarNumber(QStringLiteral("{bar:3}"), QStringLiteral("125")), QStringLiteral("125"));
    EXPECT_EQ(withBarNumber(QStringLiteral("{bar:3}"), QStringLiteral("1250")), QStringLiteral("1250"));
    EXPECT_EQ(withBarNumber(QStringLiteral("{bar}, {bar:2}"), QStringLiteral("7")), QStringLiteral("7, 07"));
}

TEST_F(TranslatedScriptTest, BarOutOfTheRange_FailsBeforeAnythingIsDone) {
    keys_.bar = BarSteps{{Keystroke{QStringLiteral("{bar}"), {}}},
                         {},
                         BarRange{1, 999, QStringLiteral("Daw has the bars 1 to 999.")}};
    for (const auto& bar : {QStringLiteral("0"), QStringLiteral("1000"), QString(30, u'9')}) {
        QString script = testing::barScript(1, testing::ThenPlay::No);
        script.replace(QStringLiteral("\"1\""), u'"' + bar + u'"');
        EXPECT_EQ(run(script), QStringLiteral("System Events got an error: Daw has the bars 1 to 999."));
    }
    EXPECT_THAT(actions(), IsEmpty());
    EXPECT_EQ(run(testing::barScript(999, testing::ThenPlay::No)), QString());
}

TEST_F(TranslatedScriptTest, WaitsThatAreTogetherLongerThanAScripts_FailBeforeAnythingIsDone) {
    map(record, Steps{Delay{std::chrono::seconds{5}}, KeyCode{1, {}}});
    const auto pressed = [](int count) {
        return testing::keystrokeScript(QStringList(count, QStringLiteral("keystroke \"r\"")).join(u'\n'));
    };
    EXPECT_EQ(run(pressed(6)), QString());
    const auto before = actions().size();
    EXPECT_TRUE(run(pressed(7)).contains(QStringLiteral("longer than 30 seconds")));
    EXPECT_TRUE(
        run(QStringLiteral("delay 9\n") + pressed(5)).contains(QStringLiteral("longer than 30 seconds")));
    EXPECT_EQ(actions().size(), before);
}

TEST_F(TranslatedScriptTest, DialogIsOpen_NoKeyIsSentAndItIsNamed) {
    desktop_.dialog = QStringLiteral("Take Snapshot");
    const QString refusal = QStringLiteral("System Events got an error: A dialog of \"Daw\", “Take "
                                           "Snapshot”, waits for an answer, and the key would "
                                           "go there.");
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("key code 36"))), refusal);
    EXPECT_THAT(actions(), ElementsAre("raise daw"));
    EXPECT_TRUE(run(testing::barScript(7, testing::ThenPlay::Yes)).contains(QStringLiteral("Take Snapshot")));
    EXPECT_THAT(desktop_.keys(), IsEmpty());
}

TEST_F(TranslatedScriptTest, DialogIsOpenAndEscapeIsAllThatIsPressed_Closes) {
    desktop_.dialog = QStringLiteral("Take Snapshot");
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("key code 53"))), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 53 to daw"));
    EXPECT_NE(run(testing::keystrokeScript(QStringLiteral("key code 53\nkeystroke \"r\""))), QString());
}

TEST_F(TranslatedScriptTest, DialogOpensBetweenActivationAndTheBarsKeys_NoKeyIsSentAndItIsNamed) {
    desktop_.waited = [this] { desktop_.dialog = QStringLiteral("Save Changes"); };
    const QString error = run(testing::barScript(7, testing::ThenPlay::Yes));
    EXPECT_TRUE(error.contains(QStringLiteral("“Save Changes”, waits for an answer"))) << qPrintable(error);
    EXPECT_THAT(actions(), ElementsAre("raise daw"));
}

TEST_F(TranslatedScriptTest, DialogOpensBeforeTheFirstKeyOutsideAnyBlock_NoKeyIsSentAndItIsNamed) {
    desktop_.waited = [this] { desktop_.dialog = QStringLiteral("Save Changes"); };
    const QString error =
        run(QStringLiteral("tell application \"Logic Pro\" to activate\ndelay 0.3\nkeystroke \" \""));
    EXPECT_TRUE(error.contains(QStringLiteral("“Save Changes”, waits for an answer"))) << qPrintable(error);
    EXPECT_THAT(actions(), ElementsAre("raise daw"));
}

TEST_F(TranslatedScriptTest, DialogOfAProgramThatGotNoKeyYet_NoKeyIsSentThere) {
    desktop_.running += QStringLiteral("Other");
    desktop_.before = [this](const QString& action) -> std::optional<KeyFailure> {
        if (action == QStringLiteral("key 1 to daw")) {
            desktop_.dialog = QStringLiteral("Save Changes");
        }
        return std::nullopt;
    };
    QString other = testing::keystrokeScript(QStringLiteral("key code 2"));
    other.replace(QStringLiteral("Logic Pro"), QStringLiteral("Other"));
    EXPECT_NE(run(testing::keystrokeScript(QStringLiteral("key code 1")) + u'\n' + other), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 1 to daw", "raise Other"));
}

TEST_F(TranslatedScriptTest, DialogThatTheScriptOpensItself_GetsItsKeys) {
    desktop_.before = [this](const QString& action) -> std::optional<KeyFailure> {
        if (action == QStringLiteral("key 44 to daw")) {
            desktop_.dialog = QStringLiteral("Go to Position");
        }
        return std::nullopt;
    };
    EXPECT_EQ(run(testing::barScript(7, testing::ThenPlay::No)), QString());
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 44 to daw", "key '7' to daw", "key 36 to daw"));
}

TEST_F(TranslatedScriptTest, WorkstationEndsInTheMiddleOfABar_NothingFurtherIsSent) {
    keys_.bar =
        BarSteps{{KeyCode{75, {}}, Keystroke{QStringLiteral("{bar}"), {}}}, {KeyCode{49, {}}}, std::nullopt};
    desktop_.before = [](const QString& action) -> std::optional<KeyFailure> {
        if (action == QStringLiteral("key '7' to daw")) {
            return KeyFailure{KeyFailure::Kind::NotRunning, {}};
        }
        return std::nullopt;
    };
    EXPECT_EQ(run(testing::barScript(7, testing::ThenPlay::Yes)),
              QStringLiteral("System Events got an error: Can’t get process \"Daw\"."));
    EXPECT_THAT(actions(), ElementsAre("raise daw", "key 75 to daw"));
}

TEST_F(TranslatedScriptTest, NobodyCanBeChosen_FailsBeforeAnythingIsDone) {
    EXPECT_EQ(run(testing::keystrokeScript(QStringLiteral("keystroke \"r\"")), std::make_unique<NoChoice>()),
              QStringLiteral("System Events got an error: A and B are running."));
    EXPECT_THAT(actions(), IsEmpty());
}

} // namespace
} // namespace brivandel
