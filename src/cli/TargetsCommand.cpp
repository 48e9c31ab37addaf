#include "cli/Subcommands.h"
#include "platform/Targets.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>

namespace brivandel {

namespace {

struct TargetsOptions {
    std::string target;
    bool json = false;
};

void printJson(const Target& target, std::ostream& out) {
    nlohmann::ordered_json line = {
        {"name", target.name.toStdString()}, {"running", nullptr}, {"chosen", target.isChosen}};
    if (target.isRunning) {
        line["running"] = *target.isRunning;
    }
    if (!target.profile.isEmpty()) {
        line["profile"] = target.profile.toStdString();
    }
    if (!target.tried.isEmpty()) {
        line["tried"] = target.tried.toStdString();
    }
    out << line.dump() << '\n';
}

void print(const Target& target, qsizetype nameWidth, std::ostream& out) {
    const QString running = !target.isRunning   ? QStringLiteral("?")
                            : *target.isRunning ? QStringLiteral("running")
                                                : QStringLiteral("–");
    const QString profile =
        target.profile.isEmpty() ? QStringLiteral("the keys of Logic Pro") : target.profile;
    out << (target.isChosen ? "* " : "  ") << target.name.leftJustified(nameWidth).toStdString() << "  "
        << running.leftJustified(qsizetype{7}).toStdString() << "  " << profile.toStdString() << '\n';
}

} // namespace

void addTargetsCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<TargetsOptions>();
    CLI::App* command =
        app.add_subcommand("targets", "List the workstations whose keys are known; * marks the one in force");
    command->add_option("--target", options->target, "The program that stands for Logic Pro");
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) -> int {
        const TargetList list = listTargets(QString::fromStdString(options->target));
        qsizetype nameWidth = 0;
        for (const Target& target : list.targets) {
            nameWidth = std::max(nameWidth, target.name.size());
        }
        for (const Target& target : list.targets) {
            if (options->json) {
                printJson(target, terminal.out);
            } else {
                print(target, nameWidth, terminal.out);
            }
        }
        for (const QString& problem : list.problems) {
            terminal.err << "brivandel targets: " << problem.toStdString() << '\n';
        }
        return ExitStatus::success;
    };
}

} // namespace brivandel
