// Any lines as a scenario: a wrong one is refused with words, and a right one prints the same each time.

#include "Require.h"
#include "cli/replay/ReplaySession.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

namespace {

using namespace brivandel;

// Virtual time costs work where a session is renewed every 45 seconds of it; an hour shows all there is to
// see.
constexpr double longestWait = 3600;
constexpr int mostSteps = 60;

bool isTooLong(const std::string& line) {
    const auto json = nlohmann::ordered_json::parse(line, nullptr, false);
    if (!json.is_object()) {
        return false;
    }
    for (const auto& member : json.items()) {
        if (member.value().is_number() && member.value().get<double>() > longestWait) {
            return true;
        }
    }
    return false;
}

std::string played(const std::string& scenario) {
    std::string printed;
    ReplaySession session(
        [&printed](const nlohmann::ordered_json& effect) { printed += effect.dump() + '\n'; }, {});
    std::istringstream lines(scenario);
    std::string line;
    for (int step = 0; step < mostSteps && std::getline(lines, line); ++step) {
        if (isTooLong(line)) {
            continue;
        }
        try {
            ScenarioStep parsed(line);
            session.play(parsed);
        } catch (const ScenarioError& error) {
            require(error.what()[0] != '\0', "a refusal says why");
        }
    }
    return printed;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int argumentCount = 1;
    static char name[] = "ReplayFuzzer";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(argumentCount, arguments);
    const std::string scenario(reinterpret_cast<const char*>(data), size);
    const std::string once = played(scenario);
    require(once == played(scenario), "two runs print the same");
    return 0;
}
