#include "platform/linux/workstations/WorkstationProfile.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace script;

TextFault faultOf(const QByteArray& text) {
    auto parsed = parseWorkstationProfile(text);
    if (const auto* const fault = std::get_if<TextFault>(&parsed)) {
        return *fault;
    }
    return {QStringLiteral("there is no fault"), 0, 0};
}

/// "line:column: sentence", as people see it after the file's name.
std::string told(const QByteArray& text) {
    const TextFault fault = faultOf(text);
    return QStringLiteral("%1:%2: %3")
        .arg(QString::number(fault.line), QString::number(fault.column), fault.sentence)
        .toStdString();
}

WorkstationProfile profileOf(const QByteArray& text) {
    auto parsed = parseWorkstationProfile(text);
    if (const auto* const fault = std::get_if<TextFault>(&parsed)) {
        ADD_FAILURE() << fault->line << ':' << fault->column << ": " << qPrintable(fault->sentence);
        return {};
    }
    return std::get<WorkstationProfile>(std::move(parsed));
}

TEST(WorkstationProfile, EveryKindOfEntry_IsRead) {
    const auto profile = profileOf(R"(// A comment.
{
  "name": "Träume", /* and another */
  "processes": ["traeume", "Traeume"],
  "tried": "Never.",
  "keys": {
    "keystroke \"r\"": "key code 49 using {shift down}",
    "key code 41 using {shift down}": ["keystroke \"a\"", "delay 0.2", "keystroke \"b\" using {command down}"],
    "keystroke \"k\"": {"nothing": "It has no click."}
  },
  "bar": {"go": ["keystroke \"{bar}\""], "play": "key code 49", "last": 999, "beyond": "No more."}
})");
    EXPECT_EQ(profile.name, QStringLiteral("Träume"));
    EXPECT_EQ(profile.processes, (QStringList{QStringLiteral("traeume"), QStringLiteral("Traeume")}));
    EXPECT_EQ(profile.tried, QStringLiteral("Never."));
    const auto& presses = profile.keys->presses;
    ASSERT_EQ(presses.size(), 3U);
    EXPECT_EQ(presses[0].first, Press(Keystroke{QStringLiteral("r"), {}}));
    EXPECT_EQ(std::get<Steps>(presses[0].second), Steps{(KeyCode{49, KeyModifier::Shift})});
    EXPECT_EQ(presses[1].first, Press(KeyCode{41, KeyModifier::Shift}));
    EXPECT_EQ(std::get<Steps>(presses[1].second),
              (Steps{Keystroke{QStringLiteral("a"), {}}, Delay{std::chrono::milliseconds(200)},
                     Keystroke{QStringLiteral("b"), KeyModifier::Command}}));
    EXPECT_EQ(std::get<NothingOfTheKind>(presses[2].second).sentence, QStringLiteral("It has no click."));
    const auto& bar = std::get<BarSteps>(profile.keys->bar.value());
    EXPECT_EQ(bar.goTo, Steps{(Keystroke{QStringLiteral("{bar}"), {}})});
    EXPECT_EQ(bar.thenPlay, Steps{(KeyCode{49, {}})});
    EXPECT_EQ(bar.range, (BarRange{0, 999, QStringLiteral("No more.")}));
}

TEST(WorkstationProfile, WithoutBarAndTried_HasNone) {
    const auto profile = profileOf(R"({"name": "A", "processes": ["a"], "keys": {}})");
    EXPECT_FALSE(profile.keys->bar);
    EXPECT_TRUE(profile.tried.isEmpty());
}

TEST(WorkstationProfile, TextThatIsNoJson_IsToldWithItsPlace) {
    EXPECT_TRUE(told("{\n  \"name\" \"A\"\n}").starts_with("2:12: syntax error"))
        << told("{\n  \"name\" \"A\"\n}");
    EXPECT_TRUE(told("").starts_with("1:1: syntax error")) << told("");
}

TEST(WorkstationProfile, FaultOfMeaning_IsToldWithItsPlace) {
    EXPECT_EQ(told("7"), "1:1: an object {…} belongs here");
    EXPECT_EQ(told("\n {\"name\": \"A\"}"), "2:2: \"processes\" is missing here");
    EXPECT_EQ(told("{\"name\": 12}"), "1:10: a text \"…\" belongs here");
    EXPECT_EQ(told("{\"name\": null}"), "1:10: a text \"…\" belongs here");
    EXPECT_EQ(told("{\"name\": \"ä\", \"colour\": 1}"),
              "1:15: \"colour\" means nothing here; it may be name, processes, tried, keys, bar");
    EXPECT_EQ(told("{\"name\": \"A\",\n \"name\": \"B\"}"), "2:2: \"name\" stands here twice");
    EXPECT_EQ(told(R"({"name": "A", "processes": []})"), "1:28: the name of a process is missing");
}

TEST(WorkstationProfile, FaultOfAPress_IsToldWithItsPlace) {
    const auto withKeys = [](const QByteArray& keys) {
        return told("{\"name\": \"A\", \"processes\": [\"a\"], \"keys\": {\n" + keys + "}}");
    };
    EXPECT_TRUE(
        withKeys(R"("keystroke r": "key code 1")").starts_with("2:1: `keystroke r` is no key press: "))
        << withKeys(R"("keystroke r": "key code 1")");
    EXPECT_TRUE(withKeys(R"("keystroke \"r\"": "key code 999")")
                    .starts_with("2:20: `key code 999` is no key press: "))
        << withKeys(R"("keystroke \"r\"": "key code 999")");
    EXPECT_EQ(withKeys(R"("delay 1": "key code 1")"), "2:1: a wait cannot be replaced");
    EXPECT_EQ(withKeys(R"("key code 1": "key code 1\nkey code 2")"),
              "2:15: `key code 1\nkey code 2` is not one key press");
    EXPECT_EQ(withKeys("\"key code 1\": \"key code 2\",\n\"key  code 1\": \"key code 3\""),
              "3:1: `key  code 1` stands here twice");
    EXPECT_EQ(withKeys(R"("key code 1": [])"),
              "2:15: a key press is missing; {\"nothing\": \"…\"} says that there is none");
    EXPECT_EQ(withKeys(R"("key code 1": {"none": "x"})"), "2:15: a list […] belongs here");
}

/// The fault of a profile whose only entry is that, on a line of its own.
std::string toldOf(const QByteArray& entry) {
    return told("{\"name\": \"A\", \"processes\": [\"a\"],\n" + entry + "}");
}

TEST(WorkstationProfile, BarNumberWhereNoneIsKnown_IsToldWithItsPlace) {
    const std::string sentence = "{bar} stands for a number only under \"bar\", \"go\"";
    EXPECT_EQ(toldOf(R"("keys": {"key code 1": "keystroke \"{bar}\""})"), "2:24: " + sentence);
    EXPECT_EQ(toldOf(R"("keys": {"keystroke \"{bar}\"": "key code 1"})"), "2:10: " + sentence);
    EXPECT_EQ(
        toldOf(
            R"("keys": {}, "bar": {"go": "keystroke \"{bar}\"", "play": ["key code 1", "keystroke \"{bar}\""]})"),
        "2:73: " + sentence);
}

TEST(WorkstationProfile, WaitsAndSteps_AreBounded) {
    EXPECT_EQ(toldOf(R"("keys": {"key code 1": ["delay 5", "key code 2"]})"), "0:0: there is no fault");
    EXPECT_EQ(toldOf(R"("keys": {"key code 1": ["delay 5", "key code 2", "delay 0.1"]})"),
              "2:50: with this the waits are longer than 5 seconds together");
    EXPECT_EQ(toldOf(R"("keys": {"key code 1": "delay 5.1"})"),
              "2:24: with this the waits are longer than 5 seconds together");
    const QByteArray typed = "\"keystroke \\\"" + QByteArray(200, 'a') + "\\\"\"";
    EXPECT_TRUE(toldOf("\"keys\": {\"key code 1\": [" + typed + ", " + typed + "]}")
                    .ends_with(": with this more than 256 characters are typed"));
    const QByteArray steps = QByteArray(R"("key code 1", )").repeated(32) + R"("key code 2")";
    EXPECT_TRUE(
        toldOf("\"keys\": {\"key code 1\": [" + steps + "]}").ends_with(": this is more than 32 steps"));
}

TEST(WorkstationProfile, BarsThatAreNoNumbersOrWithoutTheirSentence_AreToldWithTheirPlace) {
    const auto withLast = [](const QByteArray& last) {
        return toldOf(
            "\"keys\": {}, \"bar\": {\"go\": \"keystroke \\\"{bar}\\\"\", \"play\": \"key code 1\",\n" +
            last + "}");
    };
    EXPECT_EQ(withLast(R"("last": "999", "beyond": "x")"),
              "3:9: the number of a bar belongs here, as in 999");
    EXPECT_EQ(withLast(R"("last": -1, "beyond": "x")"), "3:9: the number of a bar belongs here, as in 999");
    EXPECT_EQ(withLast(R"("last": 999)"), "2:20: \"beyond\" is missing here");
    EXPECT_EQ(withLast(R"("beyond": "x")"), "2:20: \"last\" is missing here");
    EXPECT_EQ(withLast(R"("first": 1)"), "2:20: \"last\" is missing here");
    EXPECT_EQ(withLast(R"("first": "1", "last": 9, "beyond": "x")"),
              "3:10: the number of a bar belongs here, as in 999");
    EXPECT_EQ(withLast(R"("first": 2, "last": 1, "beyond": "x")"), "3:21: there is no bar up to this one");
}

TEST(WorkstationProfile, BarThatIsNeverTyped_IsToldWithItsPlace) {
    EXPECT_EQ(told("{\"name\": \"A\", \"processes\": [\"a\"], \"keys\": {},\n\"bar\": {\"go\": \"key code "
                   "1\", \"play\": "
                   "\"key code 49\"}}"),
              "2:15: no step types {bar}");
}

} // namespace
} // namespace brivandel
