#include "cli/Subcommands.h"
#include "cli/UserSettings.h"
#include "engine/TranscriptMatcher.h"

#include <QStringList>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <ostream>
#include <vector>

namespace brivandel {

namespace {

using Json = nlohmann::ordered_json;

// One line of the list, whatever kind of command it is.
struct Row {
    QString category;
    QString command;
    QString description;
    QStringList triggers;
    bool isEnabled = true;
};

std::vector<Row> rows(const UserSettings& settings) {
    std::vector<Row> all;
    for (const CommandCategory category : allCommandCategories) {
        for (const VoiceCommand command : allVoiceCommands) {
            if (brivandel::category(command) == category) {
                all.push_back({rawValue(category), rawValue(command), description(command),
                               triggersInForce(command, settings.triggerOverrides)});
            }
        }
        if (category == CommandCategory::navigation) {
            all.push_back({rawValue(category),
                           QStringLiteral("go to bar N"),
                           QStringLiteral("Go to a bar"),
                           {QStringLiteral("go to bar N")}});
            all.push_back({rawValue(category),
                           QStringLiteral("play from bar N"),
                           QStringLiteral("Play from a bar"),
                           {QStringLiteral("play from bar N"), QStringLiteral("play at bar N")}});
        }
    }
    for (const CustomCommand& command : settings.customCommands) {
        all.push_back({QStringLiteral("Custom"), command.name, command.capturedKey.displayString,
                       command.triggers, command.isEnabled});
    }
    return all;
}

void printJson(const std::vector<Row>& rows, std::ostream& out) {
    for (const Row& row : rows) {
        Json triggers = Json::array();
        for (const QString& trigger : row.triggers) {
            triggers.push_back(trigger.toStdString());
        }
        out << Json{{"category", row.category.toStdString()},
                    {"command", row.command.toStdString()},
                    {"description", row.description.toStdString()},
                    {"triggers", triggers},
                    {"enabled", row.isEnabled}}
                   .dump()
            << '\n';
    }
}

void printText(const std::vector<Row>& rows, std::ostream& out) {
    QString category;
    for (const Row& row : rows) {
        if (row.category != category) {
            out << (category.isEmpty() ? "" : "\n") << row.category.toStdString() << '\n';
            category = row.category;
        }
        QStringList notes;
        if (row.triggers.isEmpty()) {
            notes += QStringLiteral("has no trigger, so it is not reached by voice");
        } else if (row.triggers != QStringList{row.command}) {
            notes += QStringLiteral("say: ") + row.triggers.join(QStringLiteral(", "));
        }
        if (!row.isEnabled) {
            notes += QStringLiteral("switched off");
        }
        constexpr int nameWidth = 18;
        out << "  " << row.command.leftJustified(nameWidth).toStdString() << ' '
            << row.description.toStdString();
        for (const QString& note : notes) {
            out << "\n  " << QString(nameWidth + 1, u' ').toStdString() << note.toStdString();
        }
        out << '\n';
    }
}

} // namespace

void addCommandsCommand(CLI::App& app, Subcommands& subcommands) {
    const auto json = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("commands", "List what can be said, with the triggers in force");
    command->add_flag("--json", *json, "Print JSON, one object a line");
    subcommands[command] = [json](const Terminal& terminal) {
        const auto all = rows(readUserSettings(terminal.err));
        (*json ? printJson : printText)(all, terminal.out);
        return int{ExitStatus::success};
    };
}

} // namespace brivandel
