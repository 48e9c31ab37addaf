#include "cli/CommandLineRun.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct BadStep {
    const char* line;
    const char* error;
};

class BadScenario : public CommandLineTest, public testing::WithParamInterface<BadStep> {};

TEST_P(BadScenario, Replay_EndsWithTwoAndNamesTheLine) {
    const auto result =
        run({"replay", "-"}, std::string("# a comment\n\n") + GetParam().line + "\n{\"do\":\"launch\"}\n");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, std::string("-:3: ") + GetParam().error + "\n");
    EXPECT_THAT(result.out, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    CommandLineTest, BadScenario,
    testing::Values(
        BadStep{"{", "no JSON"}, BadStep{"[]", "a step must be a JSON object"},
        BadStep{"{}", "\"do\" is missing"}, BadStep{R"({"do":1})", "\"do\" must be a text, not 1"},
        BadStep{R"({"do":"jump"})", "there is no step \"jump\""},
        BadStep{R"({"do":"wait"})", "\"seconds\" is missing"},
        BadStep{R"({"do":"wait","seconds":"1"})", "\"seconds\" must be a number, not \"1\""},
        BadStep{R"({"do":"wait","seconds":-1})", "\"seconds\" must be between 0 and 1000000000"},
        BadStep{R"({"do":"launch","now":true})", "\"launch\" has no member \"now\""},
        BadStep{R"({"do":"hear","text":"x","final":1})", "\"final\" must be true or false, not 1"},
        BadStep{R"({"do":"hear","text":"x","task":1.5})", "\"task\" must be an integer, not 1.5"},
        BadStep{R"({"do":"set","property":"volume","value":1})", "there is no property \"volume\""},
        BadStep{R"({"do":"set","property":"isListening","value":1})",
                "\"value\" must be true or false, not 1"},
        BadStep{R"({"do":"set","property":"selectedAudioDevice","value":1})",
                "\"value\" must be a text, not 1"},
        BadStep{R"({"do":"set","property":"customCommands","value":[]})",
                "\"customCommands\" has a step of its own, or none"},
        BadStep{R"({"do":"customCommands","value":[{}]})",
                "\"value\" must be an array of custom commands in their stored form"},
        BadStep{R"({"do":"overrides","value":[]})", "\"value\" must be an object of arrays of texts"},
        BadStep{R"({"do":"permission","speech":"maybe"})",
                "\"speech\" must be one of notDetermined, denied, restricted, authorized"},
        BadStep{R"({"do":"audio","buffers":[[[1],[1,2]]]})",
                "the channels of a buffer must be of one length"},
        BadStep{R"({"do":"audio","buffers":[[["x"]]]})", "\"buffers\" must be a number, not \"x\""},
        BadStep{R"({"do":"devices","value":[{"uid":"a"}]})",
                "a device must have \"uid\", \"name\" and \"id\""},
        BadStep{R"({"do":"script","error":1})", "\"error\" must be an object or null"},
        BadStep{R"({"do":"store","key":"a","value":"b","type":"blob"})",
                "\"type\" must be \"data\", or absent"},
        BadStep{R"({"do":"input","channels":-1})", "\"channels\" is out of range: -1"}));

TEST_F(CommandLineTest, ReplayOfAFile_NamesItInItsErrors) {
    const std::string path = writeFile(QStringLiteral("a.jsonl"), "{\"do\":\"launch\"}\nnonsense\n");
    const auto result = run({"replay", "--only", "permissionRequest", path.c_str()});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, path + ":2: no JSON\n");
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 3);
}

TEST_F(CommandLineTest, StoreAfterLaunch_IsAnError) {
    EXPECT_EQ(run({"replay"}, "{\"do\":\"launch\"}\n{\"do\":\"store\",\"key\":\"a\",\"value\":1}\n").err,
              "-:2: \"store\" must come before \"launch\"\n");
}

TEST_F(CommandLineTest, ReplayWithSettings_StartsFromACopy) {
    storeSettings({{QStringLiteral("wakeWord"), QStringLiteral("okay studio")}});
    const std::string path = settingsPath().toStdString();
    const char* scenario = "{\"do\":\"set\",\"property\":\"audioFeedbackEnabled\",\"value\":false}\n"
                           "{\"do\":\"show\",\"property\":\"wakeWord\"}\n";
    const auto result = run({"replay", "--settings", path.c_str(), "--only", "state"}, scenario);
    EXPECT_EQ(result.out, "{\"t\":0,\"event\":\"state\",\"value\":{\"wakeWord\":\"okay studio\"}}\n");
    QFile file(settingsPath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("audioFeedback"));
}

TEST_F(CommandLineTest, ReplayWithUnreadableSettings_SaysWhy) {
    const std::string path = writeFile(QStringLiteral("bad.plist"), "garbage");
    const auto result = run({"replay", "--settings", path.c_str()}, "");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("bad.plist: it is no property list"));
}

TEST_F(CommandLineTest, SameScenario_PrintsTheSameBytes) {
    const char* scenario = "{\"do\":\"set\",\"property\":\"isListening\",\"value\":true}\n"
                           "{\"do\":\"hear\",\"text\":\"hey logic "
                           "play\"}\n{\"do\":\"wait\",\"seconds\":100}\n{\"do\":\"show\"}\n";
    const auto first = run({"replay"}, scenario);
    EXPECT_EQ(first.status, 0);
    EXPECT_THAT(first.out, HasSubstr("Call stack: …"));
    EXPECT_EQ(run({"replay"}, scenario).out, first.out);
}

} // namespace
} // namespace brivandel
