#include "listening/WatchedPlatform.h"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

namespace brivandel {

using namespace std::chrono_literals;

namespace {

using SharedHoldings = std::shared_ptr<Holdings>;

/// Counts itself for as long as somebody holds it.
class Token {
public:
    Token(SharedHoldings holdings, int Holdings::*count) : holdings_(std::move(holdings)), count_(count) {
        ++((*holdings_).*count_);
    }
    ~Token() { --((*holdings_).*count_); }
    Q_DISABLE_COPY_MOVE(Token)

private:
    SharedHoldings holdings_;
    int Holdings::*count_;
};

class WatchedMainQueue final : public MainQueue {
public:
    WatchedMainQueue(std::unique_ptr<MainQueue> queue, SharedHoldings holdings)
        : queue_(std::move(queue))
        , holdings_(std::move(holdings)) {}

    void post(Task task) override { queue_->post(counted(&Holdings::posts, std::move(task))); }
    void postAfter(std::chrono::milliseconds delay, Task task) override {
        queue_->postAfter(delay, counted(&Holdings::delayedPosts, std::move(task)));
    }
    // What counts is that the queue would run it, whoever holds the timer.
    std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay, Task task) override {
        const auto kind = delay == 45s ? &Holdings::sessionTimers : &Holdings::otherTimers;
        return queue_->startTimer(delay, counted(kind, std::move(task)));
    }
    [[nodiscard]] TimePoint now() const override { return queue_->now(); }
    [[nodiscard]] WallTime wallTime() const override { return queue_->wallTime(); }

private:
    [[nodiscard]] Task counted(int Holdings::*kind, Task task) const {
        return [token = std::make_shared<Token>(holdings_, kind), task = std::move(task)] { task(); };
    }

    std::unique_ptr<MainQueue> queue_;
    SharedHoldings holdings_;
};

class WatchedRequest final : public SpeechRecognitionRequest {
public:
    WatchedRequest(std::shared_ptr<SpeechRecognitionRequest> request, const SharedHoldings& holdings)
        : token_(holdings, &Holdings::requests)
        , request_(std::move(request)) {}

    void setShouldReportPartialResults(bool report) override {
        request_->setShouldReportPartialResults(report);
    }
    void append(const AudioBuffer& buffer) override { request_->append(buffer); }
    void endAudio() override { request_->endAudio(); }

    [[nodiscard]] const std::shared_ptr<SpeechRecognitionRequest>& inner() const { return request_; }

private:
    Token token_;
    std::shared_ptr<SpeechRecognitionRequest> request_;
};

class WatchedTask final : public SpeechRecognitionTask {
public:
    WatchedTask(std::unique_ptr<SpeechRecognitionTask> task, const SharedHoldings& holdings)
        : token_(holdings, &Holdings::tasks)
        , task_(std::move(task)) {}

    void finish() override { task_->finish(); }
    void cancel() override { task_->cancel(); }

private:
    Token token_;
    std::unique_ptr<SpeechRecognitionTask> task_;
};

class WatchedRecognizer final : public SpeechRecognizer {
public:
    WatchedRecognizer(std::unique_ptr<SpeechRecognizer> recognizer, SharedHoldings holdings)
        : recognizer_(std::move(recognizer))
        , holdings_(std::move(holdings)) {}

    void setVocabulary(const RecognitionVocabulary& vocabulary) override {
        recognizer_->setVocabulary(vocabulary);
    }
    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        const auto watched = std::dynamic_pointer_cast<WatchedRequest>(std::move(request));
        return std::make_unique<WatchedTask>(recognizer_->startTask(watched->inner(), std::move(handler)),
                                             holdings_);
    }

private:
    std::unique_ptr<SpeechRecognizer> recognizer_;
    SharedHoldings holdings_;
};

class WatchedRecognition final : public SpeechRecognition {
public:
    WatchedRecognition(std::unique_ptr<SpeechRecognition> recognition, SharedHoldings holdings)
        : recognition_(std::move(recognition))
        , holdings_(std::move(holdings)) {}

    std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override {
        auto recognizer = recognition_->makeRecognizer(locale);
        return recognizer ? std::make_unique<WatchedRecognizer>(std::move(recognizer), holdings_) : nullptr;
    }
    std::shared_ptr<SpeechRecognitionRequest> makeRequest() override {
        auto request = recognition_->makeRequest();
        return request ? std::make_shared<WatchedRequest>(std::move(request), holdings_) : nullptr;
    }

private:
    std::unique_ptr<SpeechRecognition> recognition_;
    SharedHoldings holdings_;
};

class WatchedAudioEngine final : public AudioEngine {
public:
    WatchedAudioEngine(std::unique_ptr<AudioEngine> engine, SharedHoldings holdings, EventSink sink)
        : engine_(std::move(engine))
        , holdings_(std::move(holdings))
        , sink_(std::move(sink)) {}

    [[nodiscard]] AudioFormat inputFormat() override { return engine_->inputFormat(); }
    void installTap(std::uint32_t bufferSizeFrames, const AudioFormat& format, TapBlock block) override {
        EXPECT_EQ(holdings_->taps, 0) << "a second tap is installed";
        engine_->installTap(bufferSizeFrames, format,
                            [token = std::make_shared<Token>(holdings_, &Holdings::taps),
                             block = std::move(block)](const AudioBuffer& buffer) { block(buffer); });
    }
    void removeTap() override { engine_->removeTap(); }
    void prepare() override { engine_->prepare(); }
    std::optional<QString> start() override {
        if (holdings_->engineRuns) {
            // One that runs has nothing to fail at.
            sink_("engine", {{"action", "start"}});
            return std::nullopt;
        }
        auto failure = engine_->start();
        holdings_->engineRuns = !failure;
        return failure;
    }
    void stop() override {
        engine_->stop();
        holdings_->engineRuns = false;
    }
    void followDefaultInput() override { engine_->followDefaultInput(); }
    std::int32_t setInputDevice(AudioDeviceID device) override { return engine_->setInputDevice(device); }

private:
    std::unique_ptr<AudioEngine> engine_;
    SharedHoldings holdings_;
    EventSink sink_;
};

template <typename Watched, typename Service, typename... Arguments>
void watch(std::unique_ptr<Service>& service, Arguments&&... arguments) {
    service = std::make_unique<Watched>(std::move(service), std::forward<Arguments>(arguments)...);
}

EventSink orNone(EventSink sink) {
    return sink ? std::move(sink) : [](std::string_view, const nlohmann::ordered_json&) {};
}

} // namespace

void PrintTo(const Holdings& holdings, std::ostream* out) {
    *out << holdings.requests << " requests, " << holdings.tasks << " tasks, " << holdings.taps << " taps, "
         << holdings.sessionTimers << " session timers, " << holdings.otherTimers << " other timers, "
         << holdings.posts << " posts, " << holdings.delayedPosts << " delayed posts, engine "
         << (holdings.engineRuns ? "runs" : "stands");
}

WatchedPlatform::WatchedPlatform(EventSink sink, const QVariantMap& storedObjects)
    : sink_(orNone(std::move(sink)))
    , scripted_(makeScriptedPlatform(sink_, storedObjects)) {
    watch<WatchedMainQueue>(scripted_.platform->mainQueue, holdings_);
    watch<WatchedRecognition>(scripted_.platform->speechRecognition, holdings_);
    watch<WatchedAudioEngine>(scripted_.platform->audioEngine, holdings_, sink_);
}

} // namespace brivandel
