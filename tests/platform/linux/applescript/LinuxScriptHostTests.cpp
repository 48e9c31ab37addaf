#include "platform/linux/applescript/FakeKeySender.h"
#include "platform/linux/applescript/LinuxScriptHost.h"
#include "platform/linux/applescript/ProgramScripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <thread>

namespace brivandel {

namespace {

using namespace std::chrono_literals;
using testing::barScript;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::keystrokeScript;
using testing::ThenPlay;

/// Longer than anything here takes; only a failing test waits for it.
constexpr auto forEver = 30s;

QVariant valueOf(const std::optional<ScriptErrorDictionary>& error, const char16_t* key) {
    return error ? error->value(QString::fromUtf16(key)) : QVariant();
}
QString messageOf(const std::optional<ScriptErrorDictionary>& error) {
    return valueOf(error, ScriptErrorKey::message).toString();
}
int numberOf(const std::optional<ScriptErrorDictionary>& error) {
    return valueOf(error, ScriptErrorKey::number).toInt();
}

class LinuxScriptHostTest : public ::testing::Test {
protected:
    std::unique_ptr<LinuxScriptHost> makeHost(const TargetName& target = {}) {
        auto time = std::make_unique<testing::VirtualTime>();
        time_ = time.get();
        return std::make_unique<LinuxScriptHost>(std::make_unique<testing::FakeKeySender>(desktop_),
                                                 std::make_unique<FixedStandIn>(StandIn{target, {}, {}}),
                                                 std::move(time));
    }

    std::optional<ScriptErrorDictionary> run(const QString& source) {
        host_ = makeHost(target_);
        return host_->run(source);
    }

    testing::FakeDesktop desktop_;
    TargetName target_;
    std::unique_ptr<LinuxScriptHost> host_;
    testing::VirtualTime* time_ = nullptr;
};

} // namespace

class ProgramScriptTest : public LinuxScriptHostTest,
                          public ::testing::WithParamInterface<testing::ProgramScript> {};

TEST_P(ProgramScriptTest, PressesItsKeysInTheWorkstation) {
    QStringList expected;
    for (const testing::ExpectedKey& key : GetParam().keys) {
        const QString name = std::holds_alternative<QString>(key.key)
                                 ? u'\'' + std::get<QString>(key.key) + u'\''
                                 : QString::number(std::get<std::uint16_t>(key.key));
        expected += QStringLiteral("key %1%2 to Logic Pro").arg(testing::describe(key.modifiers), name);
    }

    const auto error = run(GetParam().source);

    EXPECT_FALSE(error) << messageOf(error).toStdString();
    EXPECT_EQ(desktop_.actions().value(0), QStringLiteral("raise Logic Pro"));
    EXPECT_EQ(desktop_.actions().mid(1), expected);
}

INSTANTIATE_TEST_SUITE_P(Program, ProgramScriptTest, ::testing::ValuesIn(testing::programScripts()),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

TEST_F(LinuxScriptHostTest, Delays_LastAsLongAsTheyStand) {
    host_ = makeHost();
    const auto start = time_->now();

    EXPECT_FALSE(host_->run(barScript(12, ThenPlay::Yes)));

    EXPECT_EQ(time_->now() - start, 1100ms);
}

TEST_F(LinuxScriptHostTest, EmptyScript_Succeeds) {
    EXPECT_FALSE(run({}));
    EXPECT_THAT(desktop_.actions(), IsEmpty());
}

TEST_F(LinuxScriptHostTest, SyntaxErrorOnTheLastLine_PressesNothing) {
    const QString source = keystrokeScript(QStringLiteral("keystroke \"r\"")) + QStringLiteral("\nquit");

    const auto error = run(source);

    EXPECT_THAT(desktop_.actions(), IsEmpty());
    EXPECT_EQ(numberOf(error), -2741);
    const QString brief =
        QStringLiteral("Expected “tell”, “delay”, “keystroke” or “key code” but found “quit”.");
    EXPECT_EQ(messageOf(error), brief + QStringLiteral(" (line 7, column 1)"));
    EXPECT_EQ(valueOf(error, ScriptErrorKey::briefMessage), brief);
    EXPECT_FALSE(error->contains(QString::fromUtf16(ScriptErrorKey::appName)));
    const QVariantList range = valueOf(error, ScriptErrorKey::range).toList();
    ASSERT_EQ(range.size(), 2);
    EXPECT_EQ(source.mid(range[0].toInt(), range[1].toInt()), u"quit");
}

TEST_F(LinuxScriptHostTest, ProcessThatDoesNotRun_IsNoSuchObject) {
    desktop_.running.clear();

    const auto error = run(keystrokeScript(QStringLiteral("key code 49")));

    EXPECT_EQ(messageOf(error),
              QStringLiteral("System Events got an error: Can’t get process \"Logic Pro\"."));
    EXPECT_EQ(valueOf(error, ScriptErrorKey::briefMessage),
              QStringLiteral("Can’t get process \"Logic Pro\"."));
    EXPECT_EQ(valueOf(error, ScriptErrorKey::appName), QStringLiteral("System Events"));
    EXPECT_EQ(numberOf(error), -1728);
    EXPECT_EQ(valueOf(error, ScriptErrorKey::range).toList().value(0).toInt(), 37);
    EXPECT_THAT(desktop_.actions(), IsEmpty());
}

TEST_F(LinuxScriptHostTest, ActivatingWhatDoesNotRun_IsNotRunning) {
    desktop_.running.clear();

    const auto error = run(barScript(3, ThenPlay::No));

    EXPECT_EQ(messageOf(error), QStringLiteral("Logic Pro got an error: Application isn’t running."));
    EXPECT_EQ(numberOf(error), -600);
    EXPECT_EQ(valueOf(error, ScriptErrorKey::appName), QStringLiteral("Logic Pro"));
    EXPECT_THAT(desktop_.actions(), IsEmpty());
}

TEST_F(LinuxScriptHostTest, Target_StandsForTheWorkstationOnly) {
    desktop_.running =
        QStringList{QStringLiteral("Ardour"), QStringLiteral("Logic Pro"), QStringLiteral("Mixbus")};
    target_ = {.text = QStringLiteral("Ardour"), .by = TargetName::By::WindowTitle};

    EXPECT_FALSE(run(QStringLiteral("tell application \"Logic Pro\" to activate\n"
                                    "tell application \"System Events\"\n"
                                    "tell process \"Logic Pro\"\nkey code 1\nend tell\n"
                                    "tell process \"Mixbus\"\nkey code 2\nend tell\n"
                                    "end tell")));

    EXPECT_THAT(desktop_.actions(),
                ElementsAre(QStringLiteral("raise Ardour"), QStringLiteral("key 1 to Ardour"),
                            QStringLiteral("key 2 to Mixbus")));
    EXPECT_THAT(desktop_.lookedFor(),
                ElementsAre(target_, target_, TargetName{QStringLiteral("Mixbus"), TargetName::By::Process}));
}

TEST_F(LinuxScriptHostTest, TargetThatDoesNotRun_IsCalledByItsOwnName) {
    target_ = {.text = QStringLiteral("Ardour")};

    EXPECT_EQ(messageOf(run(keystrokeScript(QStringLiteral("key code 49")))),
              QStringLiteral("System Events got an error: Can’t get process \"Ardour\"."));
    EXPECT_EQ(messageOf(run(barScript(1, ThenPlay::No))),
              QStringLiteral("Ardour got an error: Application isn’t running."));
}

TEST_F(LinuxScriptHostTest, KeyOutsideAnyBlock_GoesToWhatTheScriptBroughtToTheFront) {
    desktop_.running += QStringLiteral("Mixbus");

    EXPECT_FALSE(run(QStringLiteral("tell application \"Logic Pro\"\nactivate\nend tell\n"
                                    "tell application \"Mixbus\" to activate\nkeystroke \"a\"")));

    EXPECT_THAT(desktop_.keys(), ElementsAre(QStringLiteral("key 'a' to Mixbus")));
}

TEST_F(LinuxScriptHostTest, KeyOutsideAnyBlockWithNothingBroughtToTheFront_IsRefused) {
    for (const QString& source :
         {QStringLiteral("keystroke \"a\""),
          QStringLiteral("tell application \"System Events\"\nkey code 1\nend tell")}) {
        const auto error = run(source);
        EXPECT_EQ(messageOf(error),
                  QStringLiteral(
                      "System Events got an error: The script brought no program to the front that the key "
                      "could go to."));
        EXPECT_EQ(numberOf(error), -10004);
        EXPECT_THAT(desktop_.actions(), IsEmpty());
    }
}

TEST_F(LinuxScriptHostTest, FocusLostBetweenKeys_EndsTheScriptAndNamesTheOther) {
    desktop_.before = [](const QString& action) -> std::optional<KeyFailure> {
        if (action == QStringLiteral("key '2' to Logic Pro")) {
            return KeyFailure{KeyFailure::Kind::FocusElsewhere, QStringLiteral("Firefox")};
        }
        return std::nullopt;
    };

    const auto error = run(barScript(123, ThenPlay::Yes));

    EXPECT_THAT(desktop_.keys(),
                ElementsAre(QStringLiteral("key 44 to Logic Pro"), QStringLiteral("key '1' to Logic Pro")));
    EXPECT_EQ(
        messageOf(error),
        QStringLiteral(
            "System Events got an error: \"Firefox\" has the keyboard focus instead of \"Logic Pro\"."));
    EXPECT_EQ(numberOf(error), -10004);
}

/// How a key's failure looks from the script.
struct FailureCase {
    const char* name;
    KeyFailure failure;
    int number;
    const char16_t* message;
};

class KeyFailureTest : public LinuxScriptHostTest, public ::testing::WithParamInterface<FailureCase> {};

TEST_P(KeyFailureTest, HasItsNumberAndMessage) {
    desktop_.before = [](const QString&) { return std::optional(GetParam().failure); };

    const auto error = run(keystrokeScript(QStringLiteral("key code 49")));

    EXPECT_EQ(numberOf(error), GetParam().number);
    EXPECT_EQ(messageOf(error),
              QStringLiteral("System Events got an error: ") + QString::fromUtf16(GetParam().message));
    EXPECT_EQ(valueOf(error, ScriptErrorKey::appName), QStringLiteral("System Events"));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, KeyFailureTest,
    ::testing::Values(
        FailureCase{
            "NotAllowed", {KeyFailure::Kind::NotAllowed, QStringLiteral("No XTEST.")}, 1002, u"No XTEST."},
        FailureCase{
            "NotRunning", {KeyFailure::Kind::NotRunning, {}}, -1728, u"Can’t get process \"Logic Pro\"."},
        FailureCase{"TimedOut", {KeyFailure::Kind::TimedOut, {}}, -1712, u"AppleEvent timed out."},
        FailureCase{"TimedOutWhy",
                    {KeyFailure::Kind::TimedOut, QStringLiteral("It slept.")},
                    -1712,
                    u"AppleEvent timed out. It slept."},
        FailureCase{"NoFocus",
                    {KeyFailure::Kind::FocusElsewhere, {}},
                    -10004,
                    u"No window has the keyboard focus, so \"Logic Pro\" would get no keys."},
        FailureCase{
            "KeyboardHeld",
            {KeyFailure::Kind::KeyboardHeld, {}},
            -10004,
            u"A menu or another program holds the keyboard, so the key would not reach \"Logic Pro\"."},
        FailureCase{"NoSuchKey", {KeyFailure::Kind::NoSuchKey, QStringLiteral("None.")}, -10000, u"None."}),
    [](const auto& parameter) { return std::string(parameter.param.name); });

TEST_F(LinuxScriptHostTest, NoDisplay_FailsEveryScript) {
    desktop_.display = KeyFailure{KeyFailure::Kind::NoDisplay, QStringLiteral("There is no X display.")};

    for (const testing::ProgramScript& script : testing::programScripts()) {
        const auto error = run(script.source);
        EXPECT_EQ(messageOf(error), QStringLiteral("System Events got an error: There is no X display."));
        EXPECT_EQ(numberOf(error), -10000);
    }
}

TEST_F(LinuxScriptHostTest, PatienceNotUsedUp_ScriptEnds) {
    desktop_.before = [this](const QString&) {
        time_->advance(9999ms);
        return std::optional<KeyFailure>();
    };

    EXPECT_FALSE(run(keystrokeScript(QStringLiteral("delay 10"))));
}

TEST_F(LinuxScriptHostTest, PatienceUsedUp_NoFurtherKeyIsPressed) {
    desktop_.before = [this](const QString& action) {
        time_->advance(action.startsWith(QStringLiteral("raise")) ? 9999ms : 1ms);
        return std::optional<KeyFailure>();
    };

    const auto error = run(keystrokeScript(QStringLiteral("key code 1\ndelay 10\nkey code 2")));

    EXPECT_THAT(desktop_.keys(), ElementsAre(QStringLiteral("key 1 to Logic Pro")));
    EXPECT_EQ(numberOf(error), -1712);
    EXPECT_EQ(messageOf(error), QStringLiteral("System Events got an error: AppleEvent timed out."));
}

TEST_F(LinuxScriptHostTest, TargetThatNeverAnswers_OtherScriptsStillRun) {
    desktop_.running += QStringLiteral("Other");
    desktop_.before = [this](const QString& action) {
        if (action.endsWith(QStringLiteral("Logic Pro"))) {
            time_->advance(10s);
        }
        return std::optional<KeyFailure>();
    };
    EXPECT_EQ(numberOf(run(keystrokeScript(QStringLiteral("key code 1")))), -1712);
    EXPECT_THAT(desktop_.keys(), IsEmpty());

    EXPECT_FALSE(host_->run(QStringLiteral(
        "tell application \"System Events\"\ntell process \"Other\"\nset frontmost to true\nkey code 2\n"
        "end tell\nend tell")));
    EXPECT_THAT(desktop_.keys(), ElementsAre(QStringLiteral("key 2 to Other")));
}

TEST_F(LinuxScriptHostTest, TargetThatCannotBeTold_NobodyGetsKeys) {
    host_ = std::make_unique<LinuxScriptHost>(
        std::make_unique<testing::FakeKeySender>(desktop_),
        std::make_unique<NoStandIn>(QStringLiteral("The target's name cannot be read: no")));
    const auto error = host_->run(keystrokeScript(QStringLiteral("key code 1")));
    EXPECT_TRUE(messageOf(error).contains(QStringLiteral("The target's name cannot be read: no")))
        << qPrintable(messageOf(error));
    EXPECT_THAT(desktop_.actions(), IsEmpty());
}

TEST_F(LinuxScriptHostTest, TwoScriptsAtOnce_DoNotMixTheirKeys) {
    host_ = makeHost();
    std::promise<void> secondPressed;
    std::promise<void> secondOpened;
    std::atomic<int> openCount = 0;
    desktop_.opened = [&] {
        if (++openCount == 2) {
            secondOpened.set_value();
        }
    };
    std::future<std::optional<ScriptErrorDictionary>> second;
    auto mixedIn = secondPressed.get_future();
    desktop_.before = [&](const QString& action) {
        if (action == QStringLiteral("key 1 to Logic Pro")) {
            second = std::async(std::launch::async,
                                [&] { return host_->run(keystrokeScript(QStringLiteral("key code 3"))); });
            EXPECT_EQ(secondOpened.get_future().wait_for(forEver), std::future_status::ready);
            EXPECT_EQ(mixedIn.wait_for(100ms), std::future_status::timeout);
        } else if (action == QStringLiteral("key 3 to Logic Pro")) {
            secondPressed.set_value();
        }
        return std::optional<KeyFailure>();
    };

    EXPECT_FALSE(host_->run(keystrokeScript(QStringLiteral("key code 1\nkeystroke \"xy\"\nkey code 2"))));
    EXPECT_FALSE(second.get());

    EXPECT_THAT(desktop_.keys(),
                ElementsAre(QStringLiteral("key 1 to Logic Pro"), QStringLiteral("key 'x' to Logic Pro"),
                            QStringLiteral("key 'y' to Logic Pro"), QStringLiteral("key 2 to Logic Pro"),
                            QStringLiteral("key 3 to Logic Pro")));
}

TEST_F(LinuxScriptHostTest, HostDestroyedDuringADelay_EndsTheScriptBeforeItsNextKey) {
    auto host = std::make_unique<LinuxScriptHost>(std::make_unique<testing::FakeKeySender>(desktop_),
                                                  std::make_unique<FixedStandIn>(StandIn{}));
    std::promise<void> pressed;
    desktop_.before = [&](const QString& action) {
        if (action == QStringLiteral("key 1 to Logic Pro")) {
            pressed.set_value();
        }
        return std::optional<KeyFailure>();
    };
    auto outcome = std::async(std::launch::async, [script = host.get()] {
        return script->run(keystrokeScript(QStringLiteral("key code 1\ndelay 10\nkey code 2")));
    });
    ASSERT_EQ(pressed.get_future().wait_for(forEver), std::future_status::ready);

    const auto start = std::chrono::steady_clock::now();
    host.reset();

    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    EXPECT_EQ(numberOf(outcome.get()), -128);
    EXPECT_THAT(desktop_.keys(), ElementsAre(QStringLiteral("key 1 to Logic Pro")));
}

} // namespace brivandel
