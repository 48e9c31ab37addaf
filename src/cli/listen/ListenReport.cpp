#include "cli/listen/ListenReport.h"

#include "cli/DecisionJson.h"
#include "cli/ScriptErrorJson.h"
#include "cli/VerdictText.h"
#include "engine/DecisionText.h"

#include <cmath>
#include <iomanip>
#include <ostream>
#include <utility>

namespace brivandel {

using Json = nlohmann::ordered_json;

namespace {

double roundedToMilliseconds(double seconds) {
    constexpr double millisecondsPerSecond = 1000;
    return std::round(seconds * millisecondsPerSecond) / millisecondsPerSecond;
}

} // namespace

ListenReport::ListenReport(std::string source, bool json, const Terminal& terminal,
                           std::function<void()> beforeLine)
    : source_(std::move(source))
    , json_(json)
    , terminal_(terminal)
    , beforeLine_(std::move(beforeLine)) {}

void ListenReport::began(std::chrono::steady_clock::time_point time) {
    if (json_) {
        printJson(0, "began",
                  {{"monotonic", std::chrono::duration<double>(time.time_since_epoch()).count()}});
    }
}

void ListenReport::heard(double seconds, const RecognitionResult& result) {
    const std::string text = result.formattedString.toStdString();
    if (json_) {
        printJson(seconds, "heard", {{"text", text}, {"final", result.isFinal}});
    } else {
        printText(seconds, "heard", text);
    }
}

void ListenReport::judged(double seconds, const UtteranceVerdict& verdict) {
    if (json_) {
        printJson(seconds, "judged", verdictMembers(verdict));
    } else if (!verdict.isAccepted) {
        printText(seconds, "passed", verdictText(verdict).toStdString());
    }
}

void ListenReport::command(double seconds, const QString& phrase, bool usesWakeWord,
                           const Decision& decision) {
    if (json_) {
        Json members = {{"phrase", phrase.toStdString()}, {"woke", usesWakeWord}};
        members.update(decisionMembers(decision));
        printJson(seconds, "command", members);
        return;
    }
    printText(seconds, "command", decisionText(decision).toStdString());
    if (const QString keys = decisionKeys(decision); !keys.isEmpty()) {
        printText(seconds, "sends", keys.toStdString());
    }
}

void ListenReport::script(double seconds, const std::optional<ScriptErrorDictionary>& error) {
    hasFailed_ = hasFailed_ || error;
    if (json_) {
        printJson(seconds, "script", error ? Json{{"error", scriptErrorJson(*error)}} : Json::object());
    } else if (error) {
        printText(seconds, "failed", describe(*error).toStdString());
    } else {
        printText(seconds, "done", {});
    }
}

void ListenReport::printJson(double seconds, const char* event, const Json& members) {
    Json line = Json::object();
    if (!source_.empty()) {
        line["file"] = source_;
    }
    line["t"] = roundedToMilliseconds(seconds);
    line["event"] = event;
    line.update(members);
    terminal_.out << line.dump() << std::endl; // at once: whoever reads this may be acting on it
}

void ListenReport::printText(double seconds, const char* event, const std::string& text) {
    if (beforeLine_) {
        beforeLine_();
    }
    constexpr int secondsWidth = 9;
    constexpr int eventWidth = 9;
    terminal_.out << source_ << std::fixed << std::setprecision(2) << std::setw(secondsWidth) << seconds
                  << " s  " << std::left << std::setw(eventWidth) << event << std::right << text << std::endl;
}

} // namespace brivandel
