#pragma once

#include "Control.h"
#include "platform/macos/CaptureEnd.h"
#include "platform/macos/MacServices.h"
#include "platform/scripted/EventSink.h"

#include <memory>
#include <utility>
#include <vector>

// Recognition that reports as the scripted one does, and does as the adapter does. Main thread.
namespace brivandel {

/// The sessions of a run, numbered from 1, as the double of the framework knows them.
class PlayedSessions final {
public:
    struct Session {
        const void* native = nullptr;
        bool isLive = true;
    };
    std::vector<std::shared_ptr<Session>> all;
};

class ReportedRequest final : public SpeechRecognitionRequest {
public:
    ReportedRequest(const EventSink& sink, std::shared_ptr<SpeechRecognitionRequest> adapter)
        : sink_(sink)
        , adapter_(std::move(adapter)) {}
    void setShouldReportPartialResults(bool report) override {
        sink_("request", {{"action", "begin"}, {"partialResults", report}});
        adapter_->setShouldReportPartialResults(report);
    }
    void append(const AudioBuffer& buffer) override {
        sink_("append", {{"channels", buffer.channels.size()}, {"frames", buffer.frameLength}});
        adapter_->append(buffer);
    }
    void endAudio() override {
        sink_("request", {{"action", "endAudio"}});
        adapter_->endAudio();
    }
    [[nodiscard]] const std::shared_ptr<SpeechRecognitionRequest>& adapter() const { return adapter_; }

private:
    EventSink sink_;
    std::shared_ptr<SpeechRecognitionRequest> adapter_;
};

class ReportedTask final : public SpeechRecognitionTask {
public:
    ReportedTask(const EventSink& sink, std::unique_ptr<SpeechRecognitionTask> adapter,
                 std::shared_ptr<PlayedSessions::Session> session)
        : sink_(sink)
        , adapter_(std::move(adapter))
        , session_(std::move(session)) {
        sink_("task", {{"action", "begin"}});
    }
    void finish() override {
        sink_("task", {{"action", "finish"}});
        adapter_->finish();
    }
    void cancel() override {
        session_->isLive = false;
        sink_("task", {{"action", "cancel"}});
        adapter_->cancel();
    }

private:
    EventSink sink_;
    std::unique_ptr<SpeechRecognitionTask> adapter_;
    std::shared_ptr<PlayedSessions::Session> session_;
};

class ReportedRecognizer final : public SpeechRecognizer {
public:
    ReportedRecognizer(const EventSink& sink, std::unique_ptr<SpeechRecognizer> adapter,
                       std::shared_ptr<PlayedSessions> sessions)
        : sink_(sink)
        , adapter_(std::move(adapter))
        , sessions_(std::move(sessions)) {}
    void setVocabulary(const RecognitionVocabulary& vocabulary) override {
        adapter_->setVocabulary(vocabulary);
    }
    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        auto task = adapter_->startTask(std::static_pointer_cast<ReportedRequest>(request)->adapter(),
                                        std::move(handler));
        auto session = std::make_shared<PlayedSessions::Session>();
        session->native = standin::newestSession();
        sessions_->all.push_back(session);
        return std::make_unique<ReportedTask>(sink_, std::move(task), std::move(session));
    }

private:
    EventSink sink_;
    std::unique_ptr<SpeechRecognizer> adapter_;
    std::shared_ptr<PlayedSessions> sessions_;
};

class ReportedRecognition final : public SpeechRecognition {
public:
    ReportedRecognition(const EventSink& sink, std::shared_ptr<PlayedSessions> sessions,
                        std::shared_ptr<CaptureEnd> captureEnd)
        : sink_(sink)
        , sessions_(std::move(sessions))
        , adapter_(makeMacSpeechRecognition(std::move(captureEnd))) {}
    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override {
        auto recognizer = adapter_->makeRecognizer(locale);
        return recognizer ? std::make_unique<ReportedRecognizer>(sink_, std::move(recognizer), sessions_)
                          : nullptr;
    }
    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override {
        return std::make_shared<ReportedRequest>(sink_, adapter_->makeRequest());
    }

private:
    EventSink sink_;
    std::shared_ptr<PlayedSessions> sessions_;
    std::unique_ptr<SpeechRecognition> adapter_;
};

} // namespace brivandel
