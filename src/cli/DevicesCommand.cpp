#include "cli/Subcommands.h"
#include "listening/Settings.h"
#include "platform/PlatformFactory.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <ostream>

namespace brivandel {

namespace {

int listDevices(bool json, const Terminal& terminal) {
    const auto platform = makePlatform({});
    const auto chosen = Settings(*platform->defaults).audioDevice();
    const auto devices = platform->audioDevices->inputDevices();
    for (const AudioDevice& device : devices) {
        const bool isChosen = chosen == device.uid;
        if (json) {
            terminal.out << nlohmann::ordered_json{{"uid", device.uid.toStdString()},
                                                   {"name", device.name.toStdString()},
                                                   {"chosen", isChosen}}
                                .dump()
                         << '\n';
        } else {
            terminal.out << (isChosen ? "* " : "  ") << device.name.toStdString() << "  ("
                         << device.uid.toStdString() << ")\n";
        }
    }
    if (devices.isEmpty()) {
        terminal.err << "brivandel devices: there is no input; 'brivandel doctor' says why\n";
        return ExitStatus::failure;
    }
    return ExitStatus::success;
}

} // namespace

void addDevicesCommand(CLI::App& app, Subcommands& subcommands) {
    const auto json = std::make_shared<bool>(false);
    CLI::App* command =
        app.add_subcommand("devices", "List the inputs; '*' marks the one that the settings name");
    command->add_flag("--json", *json, "Print JSON, one object a line");
    subcommands[command] = [json](const Terminal& terminal) { return listDevices(*json, terminal); };
}

} // namespace brivandel
