#include "cli/CommandLineRun.h"

#include <QTimeZone>

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using testing::HasSubstr;
using testing::Not;

/// A system that has nothing: no sound server, no display, no session bus.
class DoctorTest : public CommandLineTest {
protected:
    DoctorTest() {
        qputenv("PULSE_SERVER", "unix:/nonexistent/pulse");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        qunsetenv("DISPLAY");
        qputenv("TZ", "UTC");
    }

    void noteFailure(const QByteArray& json) const {
        static_cast<void>(writeFile(QStringLiteral("state/brivandel/last-failure.json"), json));
    }
};

TEST_F(DoctorTest, NothingThere_IsMissingAndSaysWhatToDo) {
    const CommandLineResult result = run({"doctor"});
    EXPECT_EQ(result.status, ExitStatus::failure);
    EXPECT_THAT(result.out, HasSubstr("✗ sound server"));
    EXPECT_THAT(result.out, HasSubstr("✗ display"));
    EXPECT_THAT(result.out, HasSubstr("– last failure    none\n"));
}

TEST_F(DoctorTest, NoDisplay_ProfilesAreLookedAtAndNothingIsSaidToRun) {
    static_cast<void>(
        writeFile(QStringLiteral("config/brivandel/workstations/mine.json"), "{\n  \"nam\": 1}"));
    EXPECT_THAT(run({"doctor"}).out, HasSubstr("mine.json:2:3: \"nam\" means nothing here"));

    const CommandLineResult targets = run({"targets", "--json"});
    EXPECT_THAT(targets.err, HasSubstr("mine.json:2:3: \"nam\" means nothing here"));
    EXPECT_THAT(targets.err, HasSubstr("There is no X display to send keys to"));
    EXPECT_THAT(targets.out, HasSubstr(R"({"name":"Ardour","running":null,"chosen":false,)"));
    EXPECT_THAT(targets.out, Not(HasSubstr(R"("chosen":true)")));
    EXPECT_THAT(run({"targets"}).out, HasSubstr("  ?"));
}

TEST_F(DoctorTest, FailureNoted_IsShownWithItsTimeAndWithoutAMark) {
    noteFailure(R"({"text": "Error: Not allowed.", "when": "2026-11-15T23:22:41Z"})");
    EXPECT_THAT(run({"doctor"}).out,
                HasSubstr("– last failure    2026-11-15 23:22:41  Error: Not allowed.\n"));
    EXPECT_THAT(
        run({"doctor", "--json"}).out,
        HasSubstr(R"({"subject":"last failure","when":"2026-11-15T23:22:41Z","detail":"Error: Not allowed."})"
                  "\n"));
}

TEST_F(DoctorTest, NoteThatCannotBeRead_IsNone) {
    noteFailure("not json");
    EXPECT_THAT(run({"doctor"}).out, HasSubstr("– last failure    none\n"));
    EXPECT_THAT(run({"doctor", "--json"}).out, Not(HasSubstr("last failure")));
}

} // namespace
} // namespace brivandel
