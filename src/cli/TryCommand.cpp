#include "cli/DecisionJson.h"
#include "cli/Subcommands.h"
#include "cli/UserSettings.h"
#include "engine/DecisionText.h"

#include <QString>

#include <CLI/CLI.hpp>

#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace brivandel {

namespace {

struct TryOptions {
    std::vector<std::string> words;
    bool json = false;
};

void printText(const PhraseOutcome& outcome, const UserSettings& settings, std::ostream& out) {
    out << '"' << outcome.phrase.toStdString() << "\"\n";
    if (settings.useWakeWord) {
        out << "  wake phrase: "
            << (outcome.woke ? "heard" : "not heard; say '" + settings.wakeWord.toStdString() + "' first")
            << '\n';
    } else {
        out << "  wake phrase: not needed\n";
    }
    if (outcome.decisions.empty()) {
        if (outcome.isMatched) {
            out << "  command:     none\n";
        } else if (outcome.woke) {
            out << "  command:     none yet\n";
        }
        return;
    }
    const Decision& decision = outcome.decisions.front();
    out << "  command:     " << decisionText(decision).toStdString() << '\n';
    if (const QString keys = decisionKeys(decision); !keys.isEmpty()) {
        out << "  sends:       " << keys.toStdString() << '\n';
    }
    for (std::size_t index = 1; index < outcome.decisions.size(); ++index) {
        out << "  hidden:      " << decisionText(outcome.decisions[index]).toStdString() << '\n';
    }
}

int runTry(const TryOptions& options, const Terminal& terminal) {
    const UserSettings settings = readUserSettings(terminal.err);
    const PhraseTrial trial(settings.phrases());
    const auto print = [&](const std::string& phrase) {
        const PhraseOutcome outcome = trial.outcome(QString::fromStdString(phrase));
        if (options.json) {
            terminal.out << outcomeJson(outcome).dump() << '\n';
        } else {
            printText(outcome, settings, terminal.out);
        }
    };

    if (options.words == std::vector<std::string>{"-"}) {
        for (std::string line; std::getline(terminal.in, line);) {
            print(line);
            terminal.out.flush();
        }
        return ExitStatus::success;
    }
    std::string phrase;
    for (const std::string& word : options.words) {
        phrase += (phrase.empty() ? "" : " ") + word;
    }
    print(phrase);
    return ExitStatus::success;
}

} // namespace

void addTryCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<TryOptions>();
    CLI::App* command =
        app.add_subcommand("try", "Say what would happen if these words were heard; nothing is sent");
    command
        ->add_option("WORD", options->words,
                     "The words, as one phrase; '-' reads a phrase a line from standard input")
        ->required();
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) { return runTry(*options, terminal); };
}

} // namespace brivandel
