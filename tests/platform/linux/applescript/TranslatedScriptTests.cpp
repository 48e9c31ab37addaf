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
    [[nodiscard]] std::variant<StandIn, QString> choose(const IsRunning& /*isRunning*/) const override {
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
                             std::make_unique<testing::VirtualTime>());
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
    keys_.bar = BarSteps{{KeyCode{75, {}}, Keystroke{QStringLiteral("{bar}0"), {}}}, {KeyCode{96, {}}}};
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

TEST_F(TranslatedScriptTest, WorkstationEndsInTheMiddleOfABar_NothingFurtherIsSent) {
    keys_.bar = BarSteps{{KeyCode{75, {}}, Keystroke{QStringLiteral("{bar}"), {}}}, {KeyCode{49, {}}}};
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
