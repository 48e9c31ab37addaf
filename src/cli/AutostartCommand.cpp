#include "cli/Subcommands.h"
#include "platform/Autostart.h"

#include <QCoreApplication>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <ostream>
#include <string>

namespace brivandel {

namespace {

struct AutostartOptions {
    std::string wanted; // "on", "off", or empty: only say how it stands
    bool json = false;
};

int runAutostart(const AutostartOptions& options, const Terminal& terminal) {
    if (!options.wanted.empty()) {
        const QString program =
            QCoreApplication::instance() != nullptr ? QCoreApplication::applicationFilePath() : QString();
        if (const auto problem = setAutostart(options.wanted == "on", program)) {
            terminal.err << "brivandel autostart: " << problem->toStdString() << '\n';
            return ExitStatus::failure;
        }
    }
    const Autostart state = autostart();
    if (options.json) {
        terminal.out << nlohmann::ordered_json{{"autostart", state.isOn},
                                               {"file", state.entryPath.toStdString()}}
                            .dump()
                     << '\n';
    } else if (state.isOn) {
        terminal.out << "on, by " << state.entryPath.toStdString() << '\n';
    } else {
        terminal.out << "off\n";
    }
    return ExitStatus::success;
}

} // namespace

void addAutostartCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<AutostartOptions>();
    CLI::App* command = app.add_subcommand(
        "autostart", "Say whether the program starts when you log in (with listening off), or switch that");
    command->add_option("STATE", options->wanted, "'on' or 'off'; none only says how it stands")
        ->check(CLI::IsMember({"on", "off"}));
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) { return runAutostart(*options, terminal); };
}

} // namespace brivandel
