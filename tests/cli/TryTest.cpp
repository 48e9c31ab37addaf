#include "cli/CommandLineRun.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST_F(CommandLineTest, TryBuiltIn_HasItsMembers) {
    EXPECT_EQ(
        run({"try", "--json", "Hey", "Logic", "count", "in"}).out,
        R"({"phrase":"Hey Logic count in","woke":true,"kind":"builtIn","command":"count me in",)"
        R"("trigger":"count in","script":"tell application \"System Events\"\n    tell process \"Logic Pro\"\n)"
        R"(        set frontmost to true\n        key code 41 using {shift down}\n    end tell\nend tell"})"
        "\n");
}

TEST_F(CommandLineTest, TryBar_HasItsMembers) {
    const std::string out = run({"try", "--json", "hey logic play from bar twenty one"}).out;
    EXPECT_THAT(
        out,
        HasSubstr(
            R"("woke":true,"kind":"bar","command":"Play from bar 21","bar":21,"thenPlay":true,"script":)"));
    EXPECT_THAT(out, Not(HasSubstr(R"("trigger")")));
}

TEST_F(CommandLineTest, TrySwitch_HasNoScript) {
    EXPECT_EQ(
        run({"try", "--json", "hey logic trigger word off"}).out,
        R"({"phrase":"hey logic trigger word off","woke":true,"kind":"triggerWordOff","trigger":"trigger word off"})"
        "\n");
    EXPECT_THAT(run({"try", "--json", "hey logic enable trigger word"}).out,
                HasSubstr(R"("kind":"triggerWordOn")"));
}

TEST_F(CommandLineTest, TryCustomCommand_UsesTheUsersSettings) {
    CustomCommand bounce;
    bounce.id = QUuid::createUuid();
    bounce.name = QStringLiteral("Bounce");
    bounce.triggers = {QStringLiteral("bounce it")};
    bounce.capturedKey.appleScript = QStringLiteral("as captured");
    storeSettings({{QStringLiteral("customCommands"), encodeCustomCommands({bounce})},
                   {QStringLiteral("useWakeWord"), false}});
    EXPECT_EQ(
        run({"try", "--json", "bounce it"}).out,
        R"({"phrase":"bounce it","woke":false,"kind":"custom","command":"Bounce","trigger":"bounce it",)"
        R"("script":"as captured"})"
        "\n");
    EXPECT_THAT(run({"try", "bounce it"}).out, HasSubstr("not needed"));
}

TEST_F(CommandLineTest, TryWithoutCommand_IsNone) {
    EXPECT_EQ(run({"try", "--json", "play"}).out, R"({"phrase":"play","woke":false,"kind":"none"})"
                                                  "\n");
    EXPECT_EQ(run({"try", "--json", "hey logic"}).out, R"({"phrase":"hey logic","woke":true,"kind":"none"})"
                                                       "\n");
    storeSettings({{QStringLiteral("wakeWord"), QStringLiteral("okay studio")}});
    EXPECT_THAT(run({"try", "play"}).out, HasSubstr("say 'okay studio' first"));
}

TEST_F(CommandLineTest, TryLinesOfInput_GivesALineEach) {
    const std::string out = run({"try", "--json", "-"}, "hey logic play\n\nhey logic undo\n").out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 3);
    EXPECT_THAT(out, HasSubstr(R"("command":"undo")"));
}

TEST_F(CommandLineTest, TryInWords_SaysWhatIsHidden) {
    const std::string out = run({"try", "hey", "logic", "play", "that", "back"}).out;
    EXPECT_THAT(out, HasSubstr("command:     play that back (Play from beginning), by \"play that back\""));
    EXPECT_THAT(out, HasSubstr("hidden:      play (Start playback from current position), by \"play\""));
    EXPECT_THAT(out, HasSubstr("sends:       key code 49"));
    EXPECT_THAT(run({"try", "hey logic undo"}).out, Not(HasSubstr("hidden")));
}

TEST_F(CommandLineTest, Try_ChangesNothing) {
    static_cast<void>(run({"try", "hey logic trigger word off"}));
    EXPECT_FALSE(QFile::exists(settingsPath()));
}

} // namespace
} // namespace brivandel
