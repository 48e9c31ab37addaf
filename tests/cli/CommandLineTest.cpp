#include "cli/CommandLineRun.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(CommandLineTest, BadUsage_EndsWithTwoAndOneLine) {
    const std::vector<std::vector<const char*>> calls = {
        {},
        {"tri"},
        {"try"},
        {"transcribe"},
        {"commands", "--jsn"},
        {"replay", "--only", "lgo"},
        {"try", "--json"},
        {"script", "a", "b"},
        {"autostart", "maybe"},
    };
    for (const auto& call : calls) {
        const auto result = run(call);
        SCOPED_TRACE(result.err);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, StartsWith("brivandel"));
        EXPECT_THAT(result.err, HasSubstr("--help'"));
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
    }
}

TEST_F(CommandLineTest, UnknownSubcommand_IsNamed) {
    EXPECT_EQ(run({"tri", "hey"}).err,
              "brivandel: there is no command 'tri'; type 'brivandel --help' for the list\n");
}

TEST_F(CommandLineTest, Help_IsThereForEverySubcommand) {
    EXPECT_THAT(run({"--help"}).out, HasSubstr("transcribe"));
    for (const char* name : {"commands", "try", "listen", "transcribe", "script", "replay", "autostart"}) {
        const auto result = run({name, "--help"});
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.out, HasSubstr("--json"));
    }
}

TEST_F(CommandLineTest, Version_IsTold) {
    EXPECT_EQ(run({"--version"}).out, "brivandel 1.4\n");
}

TEST_F(CommandLineTest, Autostart_SaysHowItStandsAndIsSwitched) {
    EXPECT_EQ(run({"autostart"}).out, "off\n");
    const std::string entry =
        writeFile(QStringLiteral("config/autostart/brivandel.desktop"), "[Desktop Entry]\n");
    EXPECT_EQ(run({"autostart"}).out, "on, by " + entry + '\n');
    EXPECT_EQ(run({"autostart", "--json"}).out, R"({"autostart":true,"file":")" + entry + "\"}\n");
    EXPECT_EQ(run({"autostart", "off"}).out, "off\n");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(entry)));
}

TEST_F(CommandLineTest, Commands_AreListedByCategoryWithTheTriggersInForce) {
    CustomCommand bounce;
    bounce.id = QUuid::createUuid();
    bounce.name = QStringLiteral("Bounce");
    bounce.triggers = {QStringLiteral("bounce it")};
    bounce.capturedKey.displayString = QStringLiteral("⌘B");
    bounce.isEnabled = false;
    storeSettings({
        {QStringLiteral("customCommands"), encodeCustomCommands({bounce})},
        {QStringLiteral("builtInTriggerOverrides"), QByteArray(R"({"play":["roll tape"]})")},
    });
    const auto result = run({"commands", "--json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 23);
    EXPECT_THAT(result.out, StartsWith(R"({"category":"Transport","command":"play",)"
                                       R"("description":"Start playback from current position",)"
                                       R"("triggers":["roll tape"],"enabled":true})"));
    EXPECT_THAT(result.out, HasSubstr(R"({"category":"Navigation","command":"go to bar N")"));
    EXPECT_THAT(result.out, HasSubstr(R"({"category":"Custom","command":"Bounce","description":"⌘B",)"
                                      R"("triggers":["bounce it"],"enabled":false})"));
    EXPECT_THAT(run({"commands"}).out, HasSubstr("say: roll tape"));
}

TEST_F(CommandLineTest, UnreadableSettings_AreSaidAndTheDefaultsHold) {
    static_cast<void>(writeFile(settingsPath(), "garbage"));
    const auto result = run({"try", "hey", "logic", "play"});
    EXPECT_THAT(result.err, HasSubstr("could not be read"));
    EXPECT_THAT(result.out, HasSubstr("play (Start playback"));
}

TEST_F(CommandLineTest, ScriptOfAnotherLanguage_IsRefusedWithItsDictionary) {
    const auto human = run({"script", "-"}, "do shell script \"ls\"");
    EXPECT_EQ(human.status, 1);
    EXPECT_THAT(human.out, StartsWith("{NSAppleScriptError"));
    const auto json = run({"script", "--json"}, "do shell script \"ls\"");
    EXPECT_EQ(json.status, 1);
    EXPECT_THAT(json.out, HasSubstr(R"("NSAppleScriptErrorNumber":-2741)"));
}

TEST_F(CommandLineTest, ScriptFileThatIsNotThere_IsNamed) {
    const auto result = run({"script", "/nonexistent.applescript"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "brivandel script: /nonexistent.applescript: No such file or directory\n");
}

} // namespace
} // namespace brivandel
