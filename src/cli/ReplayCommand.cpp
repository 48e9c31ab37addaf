#include "cli/Subcommands.h"
#include "cli/TextInput.h"
#include "cli/replay/ReplaySession.h"
#include "platform/PlatformFactory.h"

#include <QStringList>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <istream>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>

namespace brivandel {

namespace {

struct ReplayOptions {
    std::string file = "-";
    std::string settings;
    std::string only;  // event names with commas between; empty: all
    bool json = false; // nothing else is printed; the switch is there because every subcommand has it
};

constexpr auto eventNames = std::to_array<std::string_view>({
    "change",
    "log",
    "script",
    "beep",
    "notification",
    "store",
    "request",
    "task",
    "engine",
    "append",
    "permissionRequest",
    "state",
});

int replay(std::istream& in, const std::string& name, ReplaySession& session, std::ostream& err) {
    std::string line;
    for (std::size_t number = 1; std::getline(in, line); ++number) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (line.empty() || line.front() == '#') {
            continue;
        }
        try {
            ScenarioStep step(line);
            session.play(step);
        } catch (const ScenarioError& error) {
            err << name << ':' << number << ": " << error.what() << '\n';
            return ExitStatus::badUsage;
        }
    }
    return ExitStatus::success;
}

QStringList commaSeparated(const std::string& text) {
    return QString::fromStdString(text).split(u',', Qt::SkipEmptyParts);
}

int runReplay(const ReplayOptions& options, const Terminal& terminal) {
    const QStringList only = commaSeparated(options.only);
    const auto unknown = std::ranges::find_if(only, [](const QString& name) {
        return std::ranges::find(eventNames, name.toStdString()) == eventNames.end();
    });
    if (unknown != only.end()) {
        terminal.err << "brivandel replay: there is no event \"" << unknown->toStdString()
                     << "\"; type 'brivandel replay --help'\n";
        return ExitStatus::badUsage;
    }
    QVariantMap storedObjects;
    if (!options.settings.empty()) {
        auto read = readDefaultsFile(QString::fromStdString(options.settings));
        if (const auto* reason = std::get_if<QString>(&read)) {
            terminal.err << "brivandel replay: " << options.settings << ": " << reason->toStdString() << '\n';
            return ExitStatus::failure;
        }
        storedObjects = std::get<QVariantMap>(read);
    }
    // A file is read whole; standard input line by line, since whoever writes it may be waiting for what it
    // prints.
    std::istringstream text;
    if (options.file != "-") {
        const auto input = readTextInput(options.file, terminal);
        if (const auto* error = std::get_if<TextInputError>(&input)) {
            terminal.err << "brivandel replay: " << options.file << ": " << error->reason << '\n';
            return ExitStatus::failure;
        }
        text.str(std::get<std::string>(input));
    }

    const auto print = [&](const nlohmann::ordered_json& effect) {
        const auto& event = effect.at("event").get_ref<const std::string&>();
        if (only.isEmpty() || only.contains(QString::fromStdString(event))) {
            terminal.out << effect.dump() << '\n';
        }
    };
    ReplaySession session(print, storedObjects);
    return replay(options.file == "-" ? terminal.in : text, options.file, session, terminal.err);
}

} // namespace

void addReplayCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<ReplayOptions>();
    CLI::App* command =
        app.add_subcommand("replay", "Play a scenario against the engine, in virtual time; nothing is sent");
    command->add_option("FILE", options->file,
                        "The scenario, JSON Lines; '-', or none, reads it from standard input");
    command->add_option("--settings", options->settings, "Start from a copy of this settings file");
    command->add_option("--only", options->only, "Print these events only, as in --only log,script,change");
    command->add_flag("--json", options->json,
                      "Print JSON, one object a line, which is what it always prints");
    subcommands[command] = [options](const Terminal& terminal) { return runReplay(*options, terminal); };
}

} // namespace brivandel
