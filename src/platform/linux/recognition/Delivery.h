#pragma once

#include "platform/SpeechRecognition.h"

#include <mutex>
#include <utility>

namespace brivandel {

/// Hands results to the handler of a session until it is closed. Any thread.
class Delivery {
public:
    explicit Delivery(SpeechRecognizer::ResultHandler handler, SpeechRecognizer::VerdictHandler judge = {})
        : handler_(std::move(handler))
        , judge_(std::move(judge)) {}

    void deliver(const std::optional<RecognitionResult>& result, const std::optional<QString>& error) {
        const std::lock_guard lock(mutex_);
        if (open_) {
            handler_(result, error);
        }
    }

    void judge(const UtteranceVerdict& verdict) {
        const std::lock_guard lock(mutex_);
        if (open_ && judge_) {
            judge_(verdict);
        }
    }

    /// When it returns, the handler neither runs nor will run again. So it waits for one that runs, which is
    /// why a handler must not wait for the main thread. From within the handler it returns at once.
    void close() {
        const std::lock_guard lock(mutex_);
        open_ = false;
    }

    [[nodiscard]] bool isOpen() const {
        const std::lock_guard lock(mutex_);
        return open_;
    }

private:
    mutable std::recursive_mutex mutex_;
    bool open_ = true;
    SpeechRecognizer::ResultHandler handler_;
    SpeechRecognizer::VerdictHandler judge_;
};

} // namespace brivandel
