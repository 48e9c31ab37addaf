#include "platform/macos/FileSpeechRecognition.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace brivandel {

namespace {

// What the recogniser's thread leaves for the caller's.
class Inbox {
public:
    struct Delivery {
        std::optional<RecognitionResult> result;
        std::optional<QString> error;

        [[nodiscard]] bool isLast() const { return error || (result && result->isFinal); }
    };

    /// Recogniser's thread.
    void put(Delivery delivery) {
        const std::lock_guard lock(mutex_);
        hasAll_ = hasAll_ || delivery.isLast();
        deliveries_.push_back(std::move(delivery));
        arrived_.notify_one();
    }

    [[nodiscard]] std::deque<Delivery> takeAll() {
        const std::lock_guard lock(mutex_);
        return std::exchange(deliveries_, {});
    }

    /// Whether the last one came in time.
    [[nodiscard]] bool awaitAll(std::chrono::milliseconds patience) {
        std::unique_lock lock(mutex_);
        return arrived_.wait_for(lock, patience, [this] { return hasAll_; });
    }

private:
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<Delivery> deliveries_;
    bool hasAll_ = false;
};

class FileRequest final : public SpeechRecognitionRequest {
public:
    FileRequest(std::shared_ptr<SpeechRecognitionRequest> background, std::chrono::milliseconds patience)
        : background_(std::move(background))
        , patience_(patience) {}

    void setShouldReportPartialResults(bool report) override {
        background_->setShouldReportPartialResults(report);
    }

    void append(const AudioBuffer& buffer) override {
        background_->append(buffer);
        deliver();
    }

    void endAudio() override {
        background_->endAudio();
        if (!inbox_ || std::exchange(hasEnded_, true)) {
            return;
        }
        if (!inbox_->awaitAll(patience_)) {
            inbox_->put({std::nullopt, QStringLiteral("the recogniser did not come to an end")});
        }
        deliver();
    }

    [[nodiscard]] const std::shared_ptr<SpeechRecognitionRequest>& background() const { return background_; }

    /// What is put into the inbox from now on goes to the handler.
    void begin(std::shared_ptr<Inbox> inbox, SpeechRecognizer::ResultHandler handler) {
        inbox_ = std::move(inbox);
        handler_ = std::move(handler);
    }

    void forget() {
        inbox_.reset();
        handler_ = {};
    }

private:
    void deliver() {
        if (!inbox_) {
            return;
        }
        const auto handler = handler_; // it may cancel
        for (const auto& delivery : inbox_->takeAll()) {
            if (inbox_) {
                handler(delivery.result, delivery.error);
            }
        }
    }

    std::shared_ptr<SpeechRecognitionRequest> background_;
    std::chrono::milliseconds patience_;
    std::shared_ptr<Inbox> inbox_;
    SpeechRecognizer::ResultHandler handler_;
    bool hasEnded_ = false;
};

class FileTask final : public SpeechRecognitionTask {
public:
    FileTask(std::unique_ptr<SpeechRecognitionTask> background, std::weak_ptr<FileRequest> request)
        : background_(std::move(background))
        , request_(std::move(request)) {}

    void finish() override { background_->finish(); }
    void cancel() override {
        background_->cancel();
        if (const auto request = request_.lock()) {
            request->forget();
        }
    }

private:
    std::unique_ptr<SpeechRecognitionTask> background_;
    std::weak_ptr<FileRequest> request_;
};

class FileRecognizer final : public SpeechRecognizer {
public:
    explicit FileRecognizer(std::unique_ptr<SpeechRecognizer> background)
        : background_(std::move(background)) {}

    void setVocabulary(const RecognitionVocabulary& vocabulary) override {
        background_->setVocabulary(vocabulary);
    }

    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        const auto ours = std::dynamic_pointer_cast<FileRequest>(std::move(request));
        if (!ours) {
            return nullptr;
        }
        const auto inbox = std::make_shared<Inbox>();
        ours->begin(inbox, std::move(handler));
        auto task =
            background_->startTask(ours->background(), [inbox](const auto& result, const auto& error) {
                inbox->put({result, error});
            });
        return task ? std::make_unique<FileTask>(std::move(task), ours) : nullptr;
    }

private:
    std::unique_ptr<SpeechRecognizer> background_;
};

} // namespace

FileSpeechRecognition::FileSpeechRecognition(std::unique_ptr<SpeechRecognition> background,
                                             std::chrono::milliseconds patience)
    : background_(std::move(background))
    , patience_(patience) {}

std::unique_ptr<SpeechRecognizer> FileSpeechRecognition::makeRecognizer(const QString& locale) {
    auto recognizer = background_->makeRecognizer(locale);
    return recognizer ? std::make_unique<FileRecognizer>(std::move(recognizer)) : nullptr;
}

std::shared_ptr<SpeechRecognitionRequest> FileSpeechRecognition::makeRequest() {
    auto request = background_->makeRequest();
    return request ? std::make_shared<FileRequest>(std::move(request), patience_) : nullptr;
}

} // namespace brivandel
