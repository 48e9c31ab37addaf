#pragma once

#include "cli/CommandLine.h"

#include <functional>
#include <map>

namespace CLI {
class App;
}

namespace brivandel {

/// What a subcommand does when it was chosen; set while it is described to the parser.
using Subcommands = std::map<const CLI::App*, std::function<int(const Terminal&)>>;

// Each describes one subcommand to the parser.
void addCommandsCommand(CLI::App& app, Subcommands& subcommands);
void addTryCommand(CLI::App& app, Subcommands& subcommands);
void addTranscribeCommand(CLI::App& app, Subcommands& subcommands);
void addScriptCommand(CLI::App& app, Subcommands& subcommands);
void addListenCommand(CLI::App& app, Subcommands& subcommands);
void addReplayCommand(CLI::App& app, Subcommands& subcommands);
void addDevicesCommand(CLI::App& app, Subcommands& subcommands);
void addTargetsCommand(CLI::App& app, Subcommands& subcommands);
void addDoctorCommand(CLI::App& app, Subcommands& subcommands);
void addAutostartCommand(CLI::App& app, Subcommands& subcommands);

} // namespace brivandel
