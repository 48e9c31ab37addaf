#pragma once

#include "cli/CommandLine.h"
#include "engine/TranscriptMatcher.h"
#include "platform/ScriptHost.h"
#include "platform/SpeechRecognition.h"

#include <QString>

#include <nlohmann/json.hpp>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace brivandel {

/// Prints what happens while something is listened to, each with the seconds since it began. One thread.
class ListenReport {
public:
    /// source: the file, or empty for the microphone. beforeLine is called before each line that is printed.
    ListenReport(std::string source, bool json, const Terminal& terminal,
                 std::function<void()> beforeLine = {});

    /// The first sound is about to be heard; by the steady clock, with which stamps of other programs can be
    /// compared.
    void began(std::chrono::steady_clock::time_point time);
    void heard(double seconds, const RecognitionResult& result);
    /// Why an utterance was delivered, or was not.
    void judged(double seconds, const UtteranceVerdict& verdict);
    void command(double seconds, const QString& phrase, bool usesWakeWord, const Decision& decision);
    void script(double seconds, const std::optional<ScriptErrorDictionary>& error);

    /// Whether a script failed.
    [[nodiscard]] bool hasFailed() const { return hasFailed_; }

private:
    void printJson(double seconds, const char* event, const nlohmann::ordered_json& members);
    void printText(double seconds, const char* event, const std::string& text);

    std::string source_;
    bool json_;
    const Terminal& terminal_;
    std::function<void()> beforeLine_;
    bool hasFailed_ = false;
};

} // namespace brivandel
