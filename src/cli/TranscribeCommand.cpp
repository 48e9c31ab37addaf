#include "cli/Subcommands.h"
#include "cli/UserSettings.h"
#include "cli/VerdictText.h"
#include "cli/WaveFile.h"
#include "engine/SpokenPhrases.h"
#include "platform/PlatformFactory.h"

#include <QString>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <cmath>
#include <iomanip>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace brivandel {

namespace {

struct TranscribeOptions {
    std::vector<std::string> files;
    bool json = false;
};

constexpr std::uint32_t blockFrameCount = 1024;

double roundedToMilliseconds(double seconds) {
    constexpr double millisecondsPerSecond = 1000;
    return std::round(seconds * millisecondsPerSecond) / millisecondsPerSecond;
}

class Transcriber {
public:
    Transcriber(SpeechRecognition& recognition, SpeechRecognizer& recognizer, bool json,
                const Terminal& terminal)
        : recognition_(recognition)
        , recognizer_(recognizer)
        , json_(json)
        , terminal_(terminal) {}

    // False when there is no sound in the file, or it cannot be heard; either is said.
    bool transcribe(const std::string& path) {
        auto opened = WaveFile::open(path);
        if (const auto* reason = std::get_if<QString>(&opened)) {
            terminal_.err << "brivandel transcribe: " << path << ": " << reason->toStdString() << '\n';
            return false;
        }
        auto& file = std::get<WaveFile>(opened);
        double seconds = 0;
        bool isHeard = true;
        const auto request = recognition_.makeRequest();
        request->setShouldReportPartialResults(true);
        recognizer_.setVerdictHandler(
            [&](const UtteranceVerdict& verdict) { print(path, seconds, verdict); });
        const auto task = recognizer_.startTask(request, [&](const std::optional<RecognitionResult>& result,
                                                             const std::optional<QString>& error) {
            if (result) {
                print(path, seconds, *result);
            }
            if (error) {
                terminal_.err << "brivandel transcribe: " << path << ": " << error->toStdString() << '\n';
            }
        });
        while (const auto buffer = file.read(blockFrameCount)) {
            seconds += buffer->frameLength / buffer->sampleRateHz;
            request->append(*buffer);
        }
        request->endAudio();
        task->finish();
        return isHeard;
    }

private:
    void print(const std::string& path, double seconds, const RecognitionResult& result) {
        const double rounded = roundedToMilliseconds(seconds);
        const std::string text = result.formattedString.toStdString();
        if (json_) {
            terminal_.out << nlohmann::ordered_json{{"file", path},
                                                    {"t", rounded},
                                                    {"final", result.isFinal},
                                                    {"text", text}}
                                 .dump()
                          << '\n';
        } else {
            terminal_.out << path << std::fixed << std::setprecision(2) << std::setw(9) << rounded
                          << (result.isFinal ? " s  final  " : " s         ") << text << '\n';
        }
    }

    void print(const std::string& path, double seconds, const UtteranceVerdict& verdict) {
        if (json_) {
            nlohmann::ordered_json line{{"file", path}, {"t", roundedToMilliseconds(seconds)}};
            line.update(verdictMembers(verdict));
            terminal_.out << line.dump() << '\n';
        } else if (!verdict.isAccepted) {
            terminal_.out << path << std::fixed << std::setprecision(2) << std::setw(9) << seconds
                          << " s  passed " << verdictText(verdict).toStdString() << '\n';
        }
    }

    SpeechRecognition& recognition_;
    SpeechRecognizer& recognizer_;
    bool json_;
    const Terminal& terminal_;
};

int runTranscribe(const TranscribeOptions& options, const Terminal& terminal) {
    const auto recognition = makeFileSpeechRecognition();
    const auto recognizer = recognition->makeRecognizer(QStringLiteral("en-US"));
    if (!recognizer) {
        terminal.err << "brivandel transcribe: "
                     << speechRecognitionProblem().value_or(QString()).toStdString() << '\n';
        return ExitStatus::failure;
    }
    const UserSettings settings = readUserSettings(terminal.err);
    recognizer->setVocabulary(spokenPhrases(settings.wakeWord, settings.useWakeWord,
                                            settings.triggerOverrides, settings.customCommands));

    Transcriber transcriber(*recognition, *recognizer, options.json, terminal);
    bool allRead = true;
    for (const std::string& file : options.files) {
        allRead = transcriber.transcribe(file) && allRead;
    }
    return allRead ? ExitStatus::success : ExitStatus::failure;
}

} // namespace

void addTranscribeCommand(CLI::App& app, Subcommands& subcommands) {
    const auto options = std::make_shared<TranscribeOptions>();
    CLI::App* command =
        app.add_subcommand("transcribe", "Print what the recogniser hears in sound files, and no more");
    command->add_option("FILE", options->files, "WAV files")->required();
    command->add_flag("--json", options->json, "Print JSON, one object a line");
    subcommands[command] = [options](const Terminal& terminal) { return runTranscribe(*options, terminal); };
}

} // namespace brivandel
