#pragma once

#include "platform/ScriptHost.h"
#include "platform/SpeechRecognition.h"

#include <functional>
#include <memory>

namespace brivandel {

/// Passes a recogniser on, and shows what it delivers and why, on the thread on which it does.
class ObservedRecognition final : public SpeechRecognition {
public:
    struct Show {
        std::function<void(const RecognitionResult&)> result;
        SpeechRecognizer::VerdictHandler verdict;
    };

    ObservedRecognition(SpeechRecognition& recognition, Show show);
    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override;
    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override;

private:
    SpeechRecognition& recognition_;
    Show show_;
};

/// Runs scripts on the host that it is given, and shows how they end; without a host, runs and shows nothing.
class ObservedScriptHost final : public ScriptHost {
public:
    using Show = std::function<void(const std::optional<ScriptErrorDictionary>&)>;

    ObservedScriptHost(ScriptHost* host, Show show);
    [[nodiscard]] std::optional<ScriptErrorDictionary> run(const QString& source) override;

private:
    ScriptHost* host_;
    Show show_;
};

} // namespace brivandel
