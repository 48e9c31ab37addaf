#pragma once

#include "platform/SpeechRecognition.h"
#include "platform/scripted/EventSink.h"

#include <memory>
#include <optional>
#include <vector>

namespace brivandel {

/// A recogniser that hears what a scenario says. Tasks are numbered from 1 over the whole run. One thread.
class ScriptedSpeechRecognition final : public SpeechRecognition {
public:
    explicit ScriptedSpeechRecognition(const EventSink& sink);
    ~ScriptedSpeechRecognition() override;

    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override;
    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override;

    void setRecognizerAvailable(bool available) { recognizerAvailable_ = available; }
    void setRequestAvailable(bool available) { requestAvailable_ = available; }

    /// Delivers to the live task of that number, or to the newest live one; with none, nothing happens. A
    /// task lives until it is cancelled or has delivered an error.
    void deliver(const std::optional<RecognitionResult>& result, const std::optional<QString>& error,
                 std::optional<std::size_t> taskNumber);
    /// Forgets every task without a report, as the end of a program does.
    void reset();

private:
    class Request;
    class Recognizer;
    class Task;
    struct Session {
        SpeechRecognizer::ResultHandler handler;
        bool isLive = true;
    };

    EventSink sink_;
    std::vector<std::shared_ptr<Session>> sessions_; // the task of number n at n - 1
    bool recognizerAvailable_ = true;
    bool requestAvailable_ = true;
};

} // namespace brivandel
