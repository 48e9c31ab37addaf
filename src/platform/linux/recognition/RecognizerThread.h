#pragma once

#include "platform/MainQueue.h"
#include "platform/RecognitionVocabulary.h"
#include "platform/linux/recognition/Delivery.h"
#include "platform/linux/recognition/ModelFiles.h"
#include "platform/linux/recognition/RecognitionSession.h"
#include "platform/linux/recognition/SoundStream.h"
#include "platform/linux/recognition/WakeUp.h"

#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace brivandel {

class DecoderPool;

/// The vocabulary in force, set on the main thread and read on the recogniser's.
class VocabularyInForce {
public:
    void set(const RecognitionVocabulary& vocabulary) {
        const std::lock_guard lock(mutex_);
        vocabulary_ = vocabulary;
    }
    [[nodiscard]] RecognitionVocabulary get() const {
        const std::lock_guard lock(mutex_);
        return vocabulary_;
    }

private:
    mutable std::mutex mutex_;
    RecognitionVocabulary vocabulary_;
};

/// The thread that decodes. It loads the models when it starts and keeps them; sessions come and go.
class RecognizerThread {
public:
    using Clock = std::function<MainQueue::TimePoint()>;

    RecognizerThread(const ModelFiles& files, Clock clock);
    /// Waits for the decoding of a moment of sound at most, once the models are loaded. No handler runs
    /// afterwards.
    ~RecognizerThread();
    Q_DISABLE_COPY_MOVE(RecognizerThread)

    /// For the sound of sessions, which wakes the thread. Any thread.
    [[nodiscard]] const std::shared_ptr<WakeUp>& wakeUp() const { return wakeUp_; }

    struct Session {
        std::shared_ptr<SoundStream> sound;
        std::shared_ptr<Delivery> delivery;
        RecognitionSession::Reporting reporting;
        std::shared_ptr<VocabularyInForce> vocabulary;
    };
    /// Main thread, as below; returns at once.
    void start(Session session);
    /// Has the decoders made ready for a vocabulary, so that the next utterance does not have to wait for
    /// them.
    void prepare(const RecognitionVocabulary& vocabulary);

private:
    struct Orders {
        bool stop = false;
        std::vector<std::pair<Session, MainQueue::TimePoint>> sessions;
        std::optional<RecognitionVocabulary> vocabulary;
    };

    void run(const ModelFiles& files);
    [[nodiscard]] Orders takeOrders();

    Clock clock_;
    std::shared_ptr<WakeUp> wakeUp_;
    std::mutex mutex_;
    Orders orders_;
    std::thread thread_;
};

} // namespace brivandel
