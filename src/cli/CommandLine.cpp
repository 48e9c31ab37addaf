#include "cli/CommandLine.h"

#include "cli/Subcommands.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>

namespace brivandel {

namespace {

constexpr auto adders = std::to_array({
    addCommandsCommand,
    addTryCommand,
    addListenCommand,
    addTranscribeCommand,
    addScriptCommand,
    addReplayCommand,
    addDevicesCommand,
    addTargetsCommand,
    addDoctorCommand,
    addAutostartCommand,
});

// The command that an error is about: the subcommand that was named, if one was.
std::string commandName(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app.get_name() : app.get_name() + ' ' + chosen.front()->get_name();
}

bool isSubcommand(const Subcommands& subcommands, const char* name) {
    return std::ranges::any_of(subcommands,
                               [name](const auto& entry) { return entry.first->get_name() == name; });
}

std::string oneLine(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    return text;
}

} // namespace

int runCommandLine(int argumentCount, const char* const* arguments, const Terminal& terminal,
                   const std::string& otherOptions) {
    CLI::App app("Brivandel listens for spoken commands and sends their keys to Logic Pro.", "brivandel");
    app.set_version_flag("--version", "brivandel " BRIVANDEL_VERSION);
    app.require_subcommand(1);
    Subcommands subcommands;
    for (const auto add : adders) {
        add(app, subcommands);
    }
    app.footer(otherOptions); // after the subcommands, which would take it over

    // The parser itself would only say that a subcommand is missing.
    if (argumentCount > 1 && arguments[1][0] != '-' && !isSubcommand(subcommands, arguments[1])) {
        terminal.err << app.get_name() << ": there is no command '" << arguments[1] << "'; type '"
                     << app.get_name() << " --help' for the list\n";
        return ExitStatus::badUsage;
    }
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& request) { // help or version was asked for
        app.exit(request, terminal.out, terminal.err);
        return ExitStatus::success;
    } catch (const CLI::ParseError& error) {
        const std::string name = commandName(app);
        terminal.err << name << ": " << oneLine(error.what()) << "; type '" << name
                     << " --help' for what it takes\n";
        return ExitStatus::badUsage;
    }
    const int status = subcommands.at(app.get_subcommands().front())(terminal);
    terminal.out.flush();
    if (!terminal.out) {
        terminal.err << commandName(app) << ": what it prints could not be written\n";
        return ExitStatus::failure;
    }
    return status;
}

} // namespace brivandel
