#include "platform/macos/CaptureEnd.h"
#include "platform/macos/FoundationText.h"
#include "platform/macos/MacServices.h"

#import <AVFoundation/AVFoundation.h>
#import <Speech/Speech.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <utility>

namespace brivandel {

namespace {

// A copy in the form that the recogniser takes; nil when channels are missing. Standard formats have one
// channel or two: of more, the first is the voice.
AVAudioPCMBuffer* _Nullable pcmBuffer(const AudioBuffer& buffer) {
    const std::size_t channelCount = buffer.channels.size() == 2 ? 2 : 1;
    const auto channels = buffer.channels.first(std::min(channelCount, buffer.channels.size()));
    if (channels.empty() || buffer.frameLength == 0 || std::ranges::count(channels, nullptr) != 0) {
        return nil;
    }
    AVAudioFormat* format = [[AVAudioFormat alloc]
        initStandardFormatWithSampleRate:buffer.sampleRateHz
                                channels:static_cast<AVAudioChannelCount>(channelCount)];
    if (format == nil) {
        return nil;
    }
    AVAudioPCMBuffer* copy = [[AVAudioPCMBuffer alloc] initWithPCMFormat:format
                                                           frameCapacity:buffer.frameLength];
    float* const* samples = copy.floatChannelData;
    if (samples == nullptr) {
        return nil;
    }
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
        std::copy_n(channels[channel], buffer.frameLength, samples[channel]);
    }
    copy.frameLength = buffer.frameLength;
    return copy;
}

// What the request, the task and the system's callbacks of one session share. It keeps the system's task,
// which keeps the callback, which keeps this: so that what was finished still delivers when nobody holds the
// task any more. The circle is cut when the session ends, in whichever way.
class Session {
public:
    explicit Session(SpeechRecognizer::ResultHandler handler) : handler_(std::move(handler)) {}

    void begin(SFSpeechRecognitionTask* task) {
        const std::lock_guard lock(mutex_);
        if (isLive_) { // it may have failed at once
            task_ = task;
        }
    }

    /// On the recogniser's queue.
    void deliver(SFSpeechRecognitionResult* _Nullable result, NSError* _Nullable error) {
        const std::lock_guard lock(mutex_);
        if (!isLive_) {
            return;
        }
        std::optional<RecognitionResult> heard;
        if (result != nil) {
            heard = {fromNSString(result.bestTranscription.formattedString),
                     static_cast<bool>(result.isFinal)};
        }
        std::optional<QString> failure;
        if (error != nil) {
            failure = fromNSString(error.localizedDescription);
        }
        if (failure) {
            end();
        } else if (heard && heard->isFinal) {
            task_ = nil; // an error may still come
        }
        handler_(heard, failure);
    }

    /// What should have come to the recogniser has ended.
    void fail(const QString& reason) {
        SFSpeechRecognitionTask* task = nil;
        {
            const std::lock_guard lock(mutex_);
            if (!isLive_) {
                return;
            }
            task = task_;
            end();
            handler_(std::nullopt, reason);
        }
        [task cancel];
    }

    void finish() {
        SFSpeechRecognitionTask* task = nil;
        {
            const std::lock_guard lock(mutex_);
            task = task_;
            isFinished_ = true;
        }
        [task finish];
    }

    void cancel() {
        SFSpeechRecognitionTask* task = nil;
        {
            const std::lock_guard lock(mutex_);
            task = task_;
            end();
        }
        [task cancel];
    }

    /// Nobody holds the request any more. On the thread that held it last.
    void abandon() {
        if (!isFinished_) {
            cancel();
        }
    }

private:
    void end() {
        isLive_ = false;
        task_ = nil;
    }

    // Recursive, for a handler may end the session that it is called for. The system is never called under
    // it.
    std::recursive_mutex mutex_;
    SpeechRecognizer::ResultHandler handler_;
    SFSpeechRecognitionTask* task_ = nil;
    bool isLive_ = true;
    std::atomic<bool> isFinished_ = false;
};

class MacRequest final : public SpeechRecognitionRequest {
public:
    MacRequest() {
        @autoreleasepool {
            request_ = [[SFSpeechAudioBufferRecognitionRequest alloc] init];
        }
    }

    ~MacRequest() override {
        @autoreleasepool {
            if (session_) {
                session_->abandon();
                session_.reset();
            }
            request_ = nil;
        }
    }

    MacRequest(const MacRequest&) = delete;
    MacRequest& operator=(const MacRequest&) = delete;

    void setShouldReportPartialResults(bool report) override {
        @autoreleasepool {
            request_.shouldReportPartialResults = report;
        }
    }

    void append(const AudioBuffer& buffer) override {
        @autoreleasepool {
            if (AVAudioPCMBuffer* copy = pcmBuffer(buffer); copy != nil) {
                [request_ appendAudioPCMBuffer:copy];
            }
        }
    }

    void endAudio() override {
        @autoreleasepool {
            [request_ endAudio];
        }
    }

    [[nodiscard]] SFSpeechAudioBufferRecognitionRequest* native() const { return request_; }
    void setSession(std::shared_ptr<Session> session) { session_ = std::move(session); }

private:
    SFSpeechAudioBufferRecognitionRequest* request_ = nil;
    std::shared_ptr<Session> session_;
};

class MacTask final : public SpeechRecognitionTask {
public:
    explicit MacTask(std::shared_ptr<Session> session) : session_(std::move(session)) {}

    void finish() override {
        @autoreleasepool {
            session_->finish();
        }
    }

    void cancel() override {
        @autoreleasepool {
            session_->cancel();
        }
    }

private:
    std::shared_ptr<Session> session_;
};

class MacRecognizer final : public SpeechRecognizer {
public:
    MacRecognizer(SFSpeechRecognizer* recognizer, std::shared_ptr<CaptureEnd> captureEnd)
        : recognizer_(recognizer)
        , captureEnd_(std::move(captureEnd)) {
        // Its own queue is the main one, which a program without windows never serves. Results stay in order.
        NSOperationQueue* queue = [[NSOperationQueue alloc] init];
        queue.maxConcurrentOperationCount = 1;
        recognizer_.queue = queue;
    }

    ~MacRecognizer() override {
        @autoreleasepool {
            recognizer_ = nil;
        }
    }

    MacRecognizer(const MacRecognizer&) = delete;
    MacRecognizer& operator=(const MacRecognizer&) = delete;

    void setVocabulary(const RecognitionVocabulary& /*vocabulary*/) override {}

    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        const auto ours = std::dynamic_pointer_cast<MacRequest>(std::move(request));
        if (!ours) {
            return nullptr;
        }
        @autoreleasepool {
            const auto session = std::make_shared<Session>(std::move(handler));
            ours->setSession(session);
            captureEnd_->listen([listening = std::weak_ptr(session)](const QString& reason) {
                @autoreleasepool {
                    if (const auto live = listening.lock()) {
                        live->fail(reason);
                    }
                }
            });
            session->begin([recognizer_
                recognitionTaskWithRequest:ours->native()
                             resultHandler:^(SFSpeechRecognitionResult* result, NSError* error) {
                               // The last result may end this very block.
                               const auto live = session;
                               live->deliver(result, error);
                             }]);
            return std::make_unique<MacTask>(session);
        }
    }

private:
    SFSpeechRecognizer* recognizer_;
    std::shared_ptr<CaptureEnd> captureEnd_;
};

class MacSpeechRecognition final : public SpeechRecognition {
public:
    explicit MacSpeechRecognition(std::shared_ptr<CaptureEnd> captureEnd)
        : captureEnd_(std::move(captureEnd)) {}

    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override {
        @autoreleasepool {
            SFSpeechRecognizer* recognizer = [[SFSpeechRecognizer alloc]
                initWithLocale:[NSLocale localeWithLocaleIdentifier:toNSString(locale)]];
            return recognizer != nil ? std::make_unique<MacRecognizer>(recognizer, captureEnd_) : nullptr;
        }
    }

    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override {
        return std::make_shared<MacRequest>();
    }

private:
    std::shared_ptr<CaptureEnd> captureEnd_;
};

} // namespace

std::unique_ptr<SpeechRecognition> makeMacSpeechRecognition(std::shared_ptr<CaptureEnd> captureEnd) {
    return std::make_unique<MacSpeechRecognition>(std::move(captureEnd));
}

} // namespace brivandel
