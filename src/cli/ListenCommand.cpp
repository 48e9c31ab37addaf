#include "cli/Subcommands.h"
#include "cli/UserSettings.h"
#include "cli/WaveFile.h"
#include "cli/listen/FileListening.h"
#include "cli/listen/ListenReport.h"
#include "cli/listen/LiveListening.h"
#include "platform/PlatformFactory.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace brivandel {

namespace {

struct ListenOptions {
    std::vector<std::string> files;
    std::string target;
    bool dryRun = false;
    bool realTime = false;
    bool json = false;
};

int listenToFiles(const ListenOptions& options, const Terminal& terminal) {
    if (const auto problem = speechRecognitionProblem()) {
        terminal.err << "brivandel listen: " << problem->toStdString() << '\n';
        return ExitStatus::failure;
    }
    const auto recognition = makeFileSpeechRecognition();
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
        ListenReport report(path, options.json, terminal);
        listenToFile(std::get<WaveFile>(opened), *recognition, listening, report);
        allWell = allWell && !report.hasFailed();
    }
    return allWell ? ExitStatus::success : ExitStatus::failure;
}

int runListen(const ListenOptions& options, const Terminal& terminal) {
    if (options.files.empty()) {
        return listenLive({QString::fromStdString(options.target), options.dryRun, options.json}, terminal);
    }
    return listenToFiles(options, terminal);
}

} // namespace

void addListenCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<ListenOptions>();
    CLI::App* command = app.add_subcommand(
        "listen", "Listen to the microphone, or to sound files, and carry out what is said; Ctrl-C ends it");
    command->add_option("FILE", options->files,
                        "WAV files instead; each is heard by a controller of its own");
    command->add_flag("--dry-run", options->dryRun, "Run no script");
    command->add_flag("--real-time", options->realTime,
                      "Listen to files at the pace of a microphone, not as fast as it goes");
    command->add_option("--target", options->target, "The program that stands for Logic Pro");
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) { return runListen(*options, terminal); };
}

} // namespace brivandel
