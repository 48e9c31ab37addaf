#include "cli/ScriptErrorJson.h"
#include "cli/Subcommands.h"
#include "cli/TextInput.h"
#include "platform/PlatformFactory.h"

#include <QString>

#include <CLI/CLI.hpp>

#include <memory>
#include <ostream>
#include <string>

namespace brivandel {

namespace {

struct ScriptOptions {
    std::string file = "-";
    std::string target;
    bool json = false;
};

int runScript(const ScriptOptions& options, const Terminal& terminal) {
    const auto input = readTextInput(options.file, terminal);
    if (const auto* error = std::get_if<TextInputError>(&input)) {
        terminal.err << "brivandel script: " << options.file << ": " << error->reason << '\n';
        return ExitStatus::failure;
    }
    const auto& source = std::get<std::string>(input);

    const auto host = makeScriptHost({QString::fromStdString(options.target)});
    const auto error = host->run(QString::fromStdString(source));
    if (options.json) {
        auto result = nlohmann::ordered_json::object();
        if (error) {
            result["error"] = scriptErrorJson(*error);
        }
        terminal.out << result.dump() << '\n';
    } else if (error) {
        terminal.out << describe(*error).toStdString() << '\n';
    }
    return error ? ExitStatus::failure : ExitStatus::success;
}

} // namespace

void addScriptCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<ScriptOptions>();
    CLI::App* command =
        app.add_subcommand("script", "Hand an AppleScript to the script host, as a command would");
    command->add_option("FILE", options->file, "The script; '-', or none, reads it from standard input");
    command->add_option("--target", options->target, "The program that stands for Logic Pro");
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) { return runScript(*options, terminal); };
}

} // namespace brivandel
