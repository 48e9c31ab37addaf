#include "cli/DecisionText.h"
#include "cli/ScriptErrorJson.h"
#include "cli/Subcommands.h"
#include "cli/UserSettings.h"
#include "cli/WaveFile.h"
#include "cli/listen/FileListening.h"
#include "platform/PlatformFactory.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <chrono>
#include <cmath>
#include <iomanip>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace brivandel {

namespace {

using Json = nlohmann::ordered_json;

struct ListenOptions {
    std::vector<std::string> files;
    std::string target;
    bool dryRun = false;
    bool realTime = false;
    bool json = false;
};

double roundedToMilliseconds(double seconds) {
    constexpr double millisecondsPerSecond = 1000;
    return std::round(seconds * millisecondsPerSecond) / millisecondsPerSecond;
}

// Prints the events of one file.
class Report {
public:
    Report(std::string file, bool json, const Terminal& terminal)
        : file_(std::move(file))
        , json_(json)
        , terminal_(terminal) {}

    // The clock, with which other programs' stamps can be compared, means something only when sound and clock
    // keep pace.
    void began(std::chrono::steady_clock::time_point time) {
        if (json_) {
            printJson(0, "began",
                      {{"monotonic", std::chrono::duration<double>(time.time_since_epoch()).count()}});
        }
    }

    void heard(double seconds, const RecognitionResult& result) {
        const std::string text = result.formattedString.toStdString();
        if (json_) {
            printJson(seconds, "heard", {{"text", text}, {"final", result.isFinal}});
        } else {
            printText(seconds, "heard    " + text);
        }
    }

    void command(double seconds, const QString& phrase, bool woke, const Decision& decision) {
        if (json_) {
            Json members = {{"phrase", phrase.toStdString()}, {"woke", woke}};
            members.update(decisionMembers(decision));
            printJson(seconds, "command", members);
        } else {
            printText(seconds, "command  " + decisionText(decision).toStdString());
            if (const QString keys = decisionKeys(decision); !keys.isEmpty()) {
                printText(seconds, "sends    " + keys.toStdString());
            }
        }
    }

    void script(double seconds, const std::optional<ScriptErrorDictionary>& error) {
        if (json_) {
            printJson(seconds, "script", error ? Json{{"error", scriptErrorJson(*error)}} : Json::object());
        } else {
            printText(seconds, error ? "failed   " + describe(*error).toStdString() : std::string("done"));
        }
    }

private:
    void printJson(double seconds, const char* event, const Json& members) {
        Json line = {{"file", file_}, {"t", roundedToMilliseconds(seconds)}, {"event", event}};
        line.update(members);
        terminal_.out << line.dump() << std::endl; // at once: whoever reads this may be acting on it
    }

    void printText(double seconds, const std::string& text) {
        terminal_.out << file_ << std::fixed << std::setprecision(2) << std::setw(9) << seconds << " s  "
                      << text << std::endl;
    }

    std::string file_;
    bool json_;
    const Terminal& terminal_;
};

int runListen(const ListenOptions& options, const Terminal& terminal) {
    const auto recognition = makeFileSpeechRecognition();
    if (const auto problem = speechRecognitionProblem()) {
        terminal.err << "brivandel listen: " << problem->toStdString() << '\n';
        return ExitStatus::failure;
    }
    const auto scriptHost =
        options.dryRun ? nullptr : makeScriptHost({QString::fromStdString(options.target)});
    const FileListeningOptions listening{readUserDefaults(terminal.err), scriptHost.get(), options.realTime};

    bool allWell = true;
    for (const std::string& path : options.files) {
        auto opened = WaveFile::open(path);
        if (const auto* reason = std::get_if<QString>(&opened)) {
            terminal.err << "brivandel listen: " << path << ": " << reason->toStdString() << '\n';
            allWell = false;
            continue;
        }
        Report report(path, options.json, terminal);
        listenToFile(std::get<WaveFile>(opened), *recognition, listening,
                     {
                         .began =
                             [&](auto time) {
                                 if (options.realTime) {
                                     report.began(time);
                                 }
                             },
                         .heard = [&report](auto... arguments) { report.heard(arguments...); },
                         .command = [&report](auto... arguments) { report.command(arguments...); },
                         .script =
                             [&report, &allWell](double seconds, const auto& error) {
                                 report.script(seconds, error);
                                 allWell = allWell && !error;
                             },
                     });
    }
    return allWell ? ExitStatus::success : ExitStatus::failure;
}

} // namespace

void addListenCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<ListenOptions>();
    CLI::App* command =
        app.add_subcommand("listen", "Listen to sound files and carry out what is said in them");
    command->add_option("FILE", options->files, "WAV files; each is heard by a controller of its own")
        ->required();
    command->add_flag("--dry-run", options->dryRun, "Run no script");
    command->add_flag("--real-time", options->realTime,
                      "Listen at the pace of a microphone, not as fast as it goes");
    command->add_option("--target", options->target, "The program that stands for Logic Pro")
        ->envname("BRIVANDEL_TARGET");
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) { return runListen(*options, terminal); };
}

} // namespace brivandel
