#include "platform/scripted/ScriptedSpeechRecognition.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace brivandel {

class ScriptedSpeechRecognition::Request final : public SpeechRecognitionRequest {
public:
    explicit Request(const EventSink& sink) : sink_(sink) {}

    void setShouldReportPartialResults(bool report) override {
        sink_("request", {{"action", "begin"}, {"partialResults", report}});
    }
    void append(const AudioBuffer& buffer) override {
        sink_("append", {{"channels", buffer.channels.size()}, {"frames", buffer.frameLength}});
    }
    void endAudio() override { sink_("request", {{"action", "endAudio"}}); }

private:
    EventSink sink_;
};

class ScriptedSpeechRecognition::Task final : public SpeechRecognitionTask {
public:
    Task(const EventSink& sink, std::shared_ptr<Session> session)
        : sink_(sink)
        , session_(std::move(session)) {
        sink_("task", {{"action", "begin"}});
    }
    void finish() override { sink_("task", {{"action", "finish"}}); }
    void cancel() override {
        session_->isLive = false;
        sink_("task", {{"action", "cancel"}});
    }

private:
    EventSink sink_;
    std::shared_ptr<Session> session_;
};

class ScriptedSpeechRecognition::Recognizer final : public SpeechRecognizer {
public:
    explicit Recognizer(ScriptedSpeechRecognition& owner) : owner_(owner) {}

    // What is heard is what the scenario says, whatever the vocabulary.
    void setVocabulary(const RecognitionVocabulary& /*vocabulary*/) override {}

    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> /*request*/,
                                                     ResultHandler handler) override {
        owner_.sessions_.push_back(std::make_shared<Session>(Session{std::move(handler)}));
        return std::make_unique<Task>(owner_.sink_, owner_.sessions_.back());
    }

private:
    ScriptedSpeechRecognition& owner_;
};

ScriptedSpeechRecognition::ScriptedSpeechRecognition(const EventSink& sink) : sink_(sink) {}

ScriptedSpeechRecognition::~ScriptedSpeechRecognition() = default;

std::unique_ptr<SpeechRecognizer> ScriptedSpeechRecognition::makeRecognizer(const QString& /*locale*/) {
    return recognizerAvailable_ ? std::make_unique<Recognizer>(*this) : nullptr;
}

std::shared_ptr<SpeechRecognitionRequest> ScriptedSpeechRecognition::makeRequest() {
    return requestAvailable_ ? std::make_shared<Request>(sink_) : nullptr;
}

void ScriptedSpeechRecognition::deliver(const std::optional<RecognitionResult>& result,
                                        const std::optional<QString>& error,
                                        std::optional<std::size_t> taskNumber) {
    std::shared_ptr<Session> session;
    if (taskNumber) {
        if (*taskNumber >= 1 && *taskNumber <= sessions_.size()) {
            session = sessions_[*taskNumber - 1];
        }
    } else {
        const auto newestFirst = sessions_ | std::views::reverse;
        const auto found =
            std::ranges::find_if(newestFirst, [](const auto& candidate) { return candidate->isLive; });
        session = found == newestFirst.end() ? nullptr : *found;
    }
    if (!session || !session->isLive) {
        return;
    }
    session->isLive = !error;
    session->handler(result, error);
}

void ScriptedSpeechRecognition::reset() {
    for (const auto& session : sessions_) {
        session->isLive = false;
    }
}

} // namespace brivandel
