#include "cli/Subcommands.h"
#include "cli/UserSettings.h"
#include "listening/LastFailure.h"
#include "platform/Diagnosis.h"
#include "platform/PlatformFactory.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace brivandel {

namespace {

struct DoctorOptions {
    std::string target;
    bool json = false;
};

constexpr int subjectWidth = 15;

void print(const Finding& finding, bool json, std::ostream& out) {
    const bool isWell = finding.state == Finding::State::Well;
    if (json) {
        nlohmann::ordered_json line = {{"subject", finding.subject.toStdString()},
                                       {"well", isWell},
                                       {"needed", finding.state == Finding::State::Missing},
                                       {"detail", finding.detail.toStdString()}};
        if (!isWell) {
            line["remedy"] = finding.remedy.toStdString();
        }
        out << line.dump() << '\n';
        return;
    }
    out << (isWell ? "✓ " : "✗ ") << finding.subject.leftJustified(subjectWidth).toStdString() << ' '
        << finding.detail.toStdString();
    if (!isWell) {
        out << "; " << finding.remedy.toStdString();
    }
    out << '\n';
}

// What has happened, not how things stand: neither well nor wanting.
void print(const std::optional<FailureRecord>& lastFailure, bool json, std::ostream& out) {
    const QString subject = QStringLiteral("last failure");
    if (!json) {
        const QString text =
            lastFailure ? lastFailure->when.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss  ")) +
                              lastFailure->text.simplified()
                        : QStringLiteral("none");
        out << "– " << subject.leftJustified(subjectWidth).toStdString() << ' ' << text.toStdString() << '\n';
    } else if (lastFailure) {
        const nlohmann::ordered_json line = {{"subject", subject.toStdString()},
                                             {"when", lastFailure->when.toString(Qt::ISODate).toStdString()},
                                             {"detail", lastFailure->text.toStdString()}};
        out << line.dump() << '\n';
    }
}

} // namespace

void addDoctorCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<DoctorOptions>();
    CLI::App* command = app.add_subcommand(
        "doctor",
        "Look at everything that listening and sending keys need; ends with 0 when listening would work");
    command->add_option("--target", options->target, "The program that stands for Logic Pro");
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) -> int {
        const auto findings = diagnose({QString::fromStdString(options->target),
                                        readUserSettings(terminal.err).audioDevice.value_or(QString())});
        for (const Finding& finding : findings) {
            print(finding, options->json, terminal.out);
        }
        print(readFailureRecord(lastFailurePath()), options->json, terminal.out);
        const bool isMissing = std::ranges::any_of(
            findings, [](const Finding& finding) { return finding.state == Finding::State::Missing; });
        return isMissing ? ExitStatus::failure : ExitStatus::success;
    };
}

} // namespace brivandel
