#include "platform/linux/applescript/ProgramScripts.h"
#include "platform/linux/applescript/ScriptParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <ostream>
#include <variant>

namespace brivandel::script {

namespace {

using namespace std::chrono_literals;

Script parsed(QStringView source) {
    auto result = parseScript(source);
    if (const auto* const error = std::get_if<ScriptSyntaxError>(&result)) {
        ADD_FAILURE() << error->message.toStdString() << " line " << error->line << " column "
                      << error->column;
        return {};
    }
    return std::get<Script>(std::move(result));
}

/// What one statement in a process block becomes.
std::variant<SetFrontmost, Delay, Keystroke, KeyCode> inProcess(const QString& statement) {
    const Script script = parsed(
        QStringLiteral("tell application \"System Events\"\ntell process \"P\"\n%1\nend tell\nend tell")
            .arg(statement));
    const auto& block = std::get<TellSystemEvents>(script.body.at(0).action);
    return std::get<TellProcess>(block.body.at(0).action).body.at(0).action;
}

Keystroke keystrokeOf(const QString& statement) {
    return std::get<Keystroke>(inProcess(statement));
}

} // namespace

TEST(ScriptParser, KeystrokeCommand_BecomesTree) {
    const QString source = testing::keystrokeScript(QStringLiteral("key code 41 using {shift down}"));

    const Script script = parsed(source);

    ASSERT_EQ(script.body.size(), 1U);
    const auto& events = std::get<TellSystemEvents>(script.body[0].action);
    ASSERT_EQ(events.body.size(), 1U);
    const auto& process = std::get<TellProcess>(events.body[0].action);
    EXPECT_EQ(process.process, u"Logic Pro");
    ASSERT_EQ(process.body.size(), 2U);
    EXPECT_TRUE(std::holds_alternative<SetFrontmost>(process.body[0].action));
    EXPECT_EQ(std::get<KeyCode>(process.body[1].action), (KeyCode{41, KeyModifier::Shift}));
    const SourceRange range = process.body[1].range;
    EXPECT_EQ(QStringView(source).mid(range.location, range.length), u"key code 41 using {shift down}");
}

TEST(ScriptParser, BarNavigation_BecomesTree) {
    const Script script = parsed(testing::barScript(12, testing::ThenPlay::Yes));

    ASSERT_EQ(script.body.size(), 5U);
    const auto& activation = std::get<TellApplication>(script.body[0].action);
    EXPECT_EQ(activation.application, u"Logic Pro");
    EXPECT_TRUE(std::holds_alternative<Activate>(activation.body.at(0).action));
    EXPECT_EQ(std::get<Delay>(script.body[1].action).duration, 300ms);
    EXPECT_EQ(std::get<Delay>(script.body[3].action).duration, 200ms);
    EXPECT_EQ(std::get<Keystroke>(script.body[4].action), (Keystroke{QStringLiteral(" "), {}}));
}

TEST(ScriptParser, ProgramScripts_AreAllUnderstood) {
    for (const testing::ProgramScript& script : testing::programScripts()) {
        EXPECT_TRUE(std::holds_alternative<Script>(parseScript(script.source))) << script.name;
    }
}

TEST(ScriptParser, ModifierList_HasEachForm) {
    const auto all = KeyModifier::Command | KeyModifier::Shift | KeyModifier::Option | KeyModifier::Control;
    EXPECT_EQ(keystrokeOf(QStringLiteral(
                              "keystroke \"a\" using {command down, shift down, option down, control down}"))
                  .modifiers,
              all);
    EXPECT_EQ(keystrokeOf(QStringLiteral("keystroke \"a\" using command down")).modifiers,
              KeyModifier::Command);
    EXPECT_EQ(keystrokeOf(QStringLiteral("keystroke \"a\"")).modifiers, KeyModifiers());
}

TEST(ScriptParser, StringEscapes_AreResolved) {
    EXPECT_EQ(keystrokeOf(QStringLiteral(R"(keystroke "a\"b\\c\n\t\rd")")).text,
              QStringLiteral("a\"b\\c\n\t\rd"));
}

TEST(ScriptParser, TextOfAnyScript_IsKept) {
    EXPECT_EQ(keystrokeOf(QStringLiteral("keystroke \"é日本😀\"")).text, QStringLiteral("é日本😀"));
}

TEST(ScriptParser, CaseAndBlanksAndLineEnds_DoNotMatter) {
    const Script expected = parsed(u"delay 1");
    for (const QStringView source :
         {u"DELAY 1", u"\t delay \t 1  ", u"delay 1\n", u"delay 1\r", u"delay 1\r\n"}) {
        const Script script = parsed(source);
        ASSERT_EQ(script.body.size(), 1U);
        EXPECT_EQ(script.body[0].action, expected.body[0].action);
    }
    EXPECT_TRUE(parsed(u"").body.empty());
    EXPECT_TRUE(parsed(u"\n \r\n\t\r").body.empty());
    EXPECT_EQ(parsed(u"\r\n\r\ndelay 1\r\n\r\ndelay 2").body.size(), 2U);
}

TEST(ScriptParser, LargestAllowedValues_AreAccepted) {
    EXPECT_EQ(std::get<KeyCode>(inProcess(QStringLiteral("key code 127"))).virtualKeyCode, 127);
    EXPECT_EQ(std::get<Delay>(inProcess(QStringLiteral("delay 10"))).duration, 10s);
    EXPECT_EQ(std::get<Delay>(inProcess(QStringLiteral("delay 0.0005"))).duration, 0ms);
    EXPECT_EQ(keystrokeOf(QStringLiteral("keystroke \"%1\"").arg(QString(256, u'x'))).text.size(), 256);
    EXPECT_TRUE(std::holds_alternative<Script>(parseScript(QString(4096, u' '))));
}

/// A source that is refused, and where.
struct Refused {
    QString source;
    int line;
    int column;
    QString message;
};

void PrintTo(const Refused& refused, std::ostream* out) {
    *out << refused.source.left(60).toStdString();
}

class RefusedScript : public ::testing::TestWithParam<Refused> {};

TEST_P(RefusedScript, IsNamedWithItsPlace) {
    const auto result = parseScript(GetParam().source);

    ASSERT_TRUE(std::holds_alternative<ScriptSyntaxError>(result));
    const auto& error = std::get<ScriptSyntaxError>(result);
    EXPECT_EQ(error.message, GetParam().message);
    EXPECT_EQ(error.line, GetParam().line);
    EXPECT_EQ(error.column, GetParam().column);
    EXPECT_LE(error.range.location + error.range.length, GetParam().source.size());
}

QString inProcessBlock(const char* statement) {
    return QStringLiteral("tell application \"System Events\"\ntell process \"P\"\n") +
           QString::fromUtf8(statement) + QStringLiteral("\nend tell\nend tell");
}

const QString commonStatements = QStringLiteral("“tell”, “delay”, “keystroke” or “key code”");
const QString processStatements =
    QStringLiteral("“set frontmost”, “delay”, “keystroke”, “key code” or “end tell”");
const QString modifierForms = QStringLiteral("“command down”, “shift down”, “option down” or “control down”");

INSTANTIATE_TEST_SUITE_P(
    Statements, RefusedScript,
    ::testing::Values(Refused{QStringLiteral("do shell script \"rm\""), 1, 1,
                              QStringLiteral("Expected %1 but found “do”.").arg(commonStatements)},
                      Refused{QStringLiteral("activate"), 1, 1,
                              QStringLiteral("Expected %1 but found “activate”.").arg(commonStatements)},
                      Refused{QStringLiteral("delay 1 delay 2"), 1, 9,
                              QStringLiteral("Expected end of line but found “delay”.")},
                      Refused{QStringLiteral("\n\n  delay \"a\""), 3, 9,
                              QStringLiteral("Expected number but found string.")},
                      Refused{QStringLiteral("delay 1\r\ndelay"), 2, 6,
                              QStringLiteral("Expected number but found end of script.")},
                      Refused{QStringLiteral("delay 1\rdelay\n"), 2, 6,
                              QStringLiteral("Expected number but found end of line.")},
                      Refused{QStringLiteral("delay -1"), 1, 7,
                              QStringLiteral("Expected expression but found unknown token.")},
                      Refused{QStringLiteral("delay 1."), 1, 7,
                              QStringLiteral("Expected a digit after the decimal point.")},
                      Refused{QStringLiteral("delay 1.2.3"), 1, 7,
                              QStringLiteral("Expected end of line but found unknown token.")},
                      Refused{QStringLiteral("delay 1e3"), 1, 7,
                              QStringLiteral("Expected end of line but found unknown token.")},
                      Refused{QStringLiteral("delay 10.001"), 1, 7,
                              QStringLiteral("A delay can’t be longer than 10 seconds.")},
                      Refused{QStringLiteral("delay ") + QString(400, u'9'), 1, 7,
                              QStringLiteral("A delay can’t be longer than 10 seconds.")},
                      Refused{
                          QStringLiteral("delay 10\ndelay 10\ndelay 10\ndelay 0.001"), 4, 7,
                          QStringLiteral("The delays of a script can’t be longer than 30 seconds together.")},
                      Refused{QStringLiteral("-- a comment"), 1, 1,
                              QStringLiteral("Expected expression but found unknown token.")},
                      // The second letter is Cyrillic.
                      Refused{QStringLiteral("dеlay 1"), 1, 1,
                              QStringLiteral("Expected %1 but found “d”.").arg(commonStatements)}));

INSTANTIATE_TEST_SUITE_P(
    Blocks, RefusedScript,
    ::testing::Values(
        Refused{QStringLiteral("tell application \"A\" to quit"), 1, 25,
                QStringLiteral("Expected “activate” but found “quit”.")},
        Refused{QStringLiteral("tell application A"), 1, 18,
                QStringLiteral("Expected string but found “a”.")},
        Refused{QStringLiteral("tell process \"P\""), 1, 6,
                QStringLiteral("Expected “application” but found “process”.")},
        Refused{QStringLiteral("tell application \"A\"\nkeystroke \"a\"\nend tell"), 2, 1,
                QStringLiteral("Expected “activate”, “delay” or “end tell” but found “keystroke”.")},
        Refused{QStringLiteral("tell application \"System Events\" to activate"), 1, 34,
                QStringLiteral("Expected end of line but found “to”.")},
        Refused{QStringLiteral(
                    "tell application \"System Events\"\ntell application \"B\" to activate\nend tell"),
                2, 6, QStringLiteral("Expected “process” but found “application”.")},
        Refused{inProcessBlock("tell process \"Q\""), 3, 1,
                QStringLiteral("Expected %1 but found “tell”.").arg(processStatements)},
        Refused{inProcessBlock("set frontmost to false"), 3, 18,
                QStringLiteral("Expected “true” but found “false”.")},
        Refused{inProcessBlock("click button 1"), 3, 1,
                QStringLiteral("Expected %1 but found “click”.").arg(processStatements)},
        Refused{QStringLiteral("tell application \"A\"\nactivate"), 2, 9,
                QStringLiteral("Expected “end tell” but found end of script.")},
        Refused{QStringLiteral("tell application \"A\"\nactivate\nend"), 3, 4,
                QStringLiteral("Expected “tell” but found end of script.")},
        Refused{QStringLiteral("tell application \"A\"\nend tell\nend tell"), 3, 1,
                QStringLiteral("Expected %1 but found “end”.").arg(commonStatements)}));

INSTANTIATE_TEST_SUITE_P(
    Keys, RefusedScript,
    ::testing::Values(
        Refused{inProcessBlock("key code 128"), 3, 10,
                QStringLiteral("A key code is a whole number from 0 to 127.")},
        Refused{inProcessBlock("key code 4.5"), 3, 10,
                QStringLiteral("A key code is a whole number from 0 to 127.")},
        Refused{inProcessBlock("key code 99999999999999999999"), 3, 10,
                QStringLiteral("A key code is a whole number from 0 to 127.")},
        Refused{inProcessBlock("key 49"), 3, 5, QStringLiteral("Expected “code” but found number.")},
        Refused{inProcessBlock("keystroke 5"), 3, 11, QStringLiteral("Expected string but found number.")},
        Refused{inProcessBlock("keystroke \"a"), 3, 11,
                QStringLiteral("Expected “\"” but found end of line.")},
        Refused{QStringLiteral("keystroke \"a\\"), 1, 11,
                QStringLiteral("Expected “\"” but found end of line.")},
        Refused{inProcessBlock("keystroke \"a\\x\""), 3, 13,
                QStringLiteral("Expected “\"”, “\\”, “n”, “r” or “t” after “\\”.")},
        Refused{inProcessBlock("keystroke \"a\x01\""), 3, 11,
                QStringLiteral("The string has characters that can’t be typed.")},
        Refused{QStringLiteral("keystroke \"") + QChar(0xd83d) + u'"', 1, 11,
                QStringLiteral("The string has characters that can’t be typed.")},
        Refused{QStringLiteral("keystroke \"") + QString(257, u'x') + u'"', 1, 11,
                QStringLiteral("A keystroke can’t have more than 256 characters.")},
        Refused{inProcessBlock("keystroke \"a\" using {}"), 3, 22,
                QStringLiteral("Expected %1 but found “}”.").arg(modifierForms)},
        Refused{inProcessBlock("keystroke \"a\" using {command}"), 3, 29,
                QStringLiteral("Expected “down” but found “}”.")},
        Refused{inProcessBlock("keystroke \"a\" using {hyper down}"), 3, 22,
                QStringLiteral("Expected %1 but found “hyper”.").arg(modifierForms)},
        Refused{inProcessBlock("keystroke \"a\" using {command down shift down}"), 3, 35,
                QStringLiteral("Expected “,” or “}” but found “shift”.")},
        Refused{inProcessBlock("keystroke \"a\" using {command down"), 3, 34,
                QStringLiteral("Expected “,” or “}” but found end of line.")},
        Refused{QString(4097, u' '), 1, 1,
                QStringLiteral("A script can’t have more than 4096 characters.")}));

TEST(ScriptParser, EveryBeginningOfAScript_IsReadOrRefused) {
    const QString whole = testing::barScript(960, testing::ThenPlay::Yes);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const auto result = parseScript(QStringView(whole).first(length));
        if (const auto* const error = std::get_if<ScriptSyntaxError>(&result)) {
            EXPECT_GE(error->range.location, 0);
            EXPECT_LE(error->range.location + error->range.length, length);
        }
    }
}

} // namespace brivandel::script
