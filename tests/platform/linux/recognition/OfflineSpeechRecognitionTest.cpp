#include "platform/linux/recognition/OfflineSpeechRecognition.h"

#include "platform/linux/recognition/InlineSpeechRecognition.h"
#include "platform/linux/recognition/ScriptedDecoder.h"

#include <gmock/gmock.h>

#include <condition_variable>
#include <mutex>
#include <semaphore>
#include <thread>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

const auto english = QStringLiteral("en-US");

/// Time that passes when it is told to. Any thread.
class ManualClock {
public:
    [[nodiscard]] RecognizerThread::Clock function() {
        return [this] { return MainQueue::TimePoint(now_.load()); };
    }
    void advance(MainQueue::Clock::duration time) { now_ = now_.load() + time; }

private:
    std::atomic<MainQueue::Clock::duration> now_{MainQueue::Clock::duration(0)};
};

/// The errors that arrive on the recogniser's thread.
class ErrorBox {
public:
    [[nodiscard]] SpeechRecognizer::ResultHandler handler() {
        return [this](const auto&, const std::optional<QString>& error) {
            const std::lock_guard lock(mutex_);
            if (error) {
                errors_ << *error;
            }
            arrived_.notify_all();
        };
    }
    [[nodiscard]] QStringList waitForOne() {
        std::unique_lock lock(mutex_);
        arrived_.wait_for(lock, 30s, [this] { return !errors_.isEmpty(); });
        return errors_;
    }

private:
    std::mutex mutex_;
    std::condition_variable arrived_;
    QStringList errors_;
};

void append(SpeechRecognitionRequest& request, const std::vector<float>& samples,
            double sampleRateHz = 16000) {
    const float* const channel = samples.data();
    request.append({sampleRateHz, static_cast<std::uint32_t>(samples.size()), {&channel, 1}});
}

class OfflineSpeechRecognitionTest : public testing::Test {
protected:
    ManualClock clock_;
    OfflineSpeechRecognition recognition_{ModelFiles::locate(), clock_.function()};
};

TEST_F(OfflineSpeechRecognitionTest, OtherLanguages_HaveNoRecognizer) {
    EXPECT_FALSE(recognition_.makeRecognizer(QStringLiteral("fr-FR")));
}

TEST_F(OfflineSpeechRecognitionTest, MissingModel_HasNoRecognizer) {
    const ModelFiles nowhere{QStringLiteral("/nowhere"), QStringLiteral("/nowhere")};
    EXPECT_FALSE(OfflineSpeechRecognition(nowhere).makeRecognizer(english));
    EXPECT_FALSE(InlineSpeechRecognition(nowhere).makeRecognizer(english));
}

TEST_F(OfflineSpeechRecognitionTest, SessionWithoutSound_EndsWithAnErrorOnTheRecognisersThread) {
    const auto recognizer = recognition_.makeRecognizer(english);
    ASSERT_TRUE(recognizer);
    ErrorBox errors;
    const auto request = recognition_.makeRequest();
    const auto task = recognizer->startTask(request, errors.handler());
    clock_.advance(1s);
    // Anything that wakes the thread makes it look at the clock.
    recognizer->setVocabulary(RecognitionVocabulary());
    EXPECT_THAT(errors.waitForOne(),
                testing::ElementsAre(QStringLiteral("No sound arrives from the input.")));
}

TEST_F(OfflineSpeechRecognitionTest, CancelledSession_DeliversNothing) {
    const auto recognizer = recognition_.makeRecognizer(english);
    bool called = false;
    const auto cancelled = recognition_.makeRequest();
    auto task = recognizer->startTask(cancelled, [&called](const auto&, const auto&) { called = true; });
    task->cancel();
    ErrorBox errors;
    const auto next = recognition_.makeRequest();
    const auto nextTask = recognizer->startTask(next, errors.handler());
    clock_.advance(1s);
    recognizer->setVocabulary(RecognitionVocabulary());
    // The next session's error says that the thread has seen to both.
    EXPECT_EQ(errors.waitForOne().size(), 1);
    EXPECT_FALSE(called);
}

TEST_F(OfflineSpeechRecognitionTest, FinishedTaskThatIsLetGo_StillDelivers) {
    const auto recognizer = recognition_.makeRecognizer(english);
    ASSERT_TRUE(recognizer);
    Noise noise;
    // Sound of this rate is an error as soon as it is looked at.
    constexpr double unheardOfRateHz = 4000;
    const std::vector<float> block = noise(Noise::silence, 20ms);

    // The first session's handler holds the thread, so that the second is let go before it is looked at.
    std::binary_semaphore isHeld(0);
    std::binary_semaphore mayGoOn(0);
    const auto first = recognition_.makeRequest();
    const auto holding = recognizer->startTask(first, [&](const auto&, const auto&) {
        isHeld.release();
        mayGoOn.acquire();
    });
    append(*first, block, unheardOfRateHz);
    ASSERT_TRUE(isHeld.try_acquire_for(30s));

    ErrorBox errors;
    auto request = recognition_.makeRequest();
    auto task = recognizer->startTask(request, errors.handler());
    append(*request, block, unheardOfRateHz);
    request->endAudio();
    task->finish();
    task.reset();
    request.reset();
    mayGoOn.release();
    EXPECT_EQ(errors.waitForOne().size(), 1);
}

TEST_F(OfflineSpeechRecognitionTest, SessionWhoseRequestNobodyHolds_EndsSilently) {
    const auto recognizer = recognition_.makeRecognizer(english);
    ASSERT_TRUE(recognizer);
    bool called = false;
    auto request = recognition_.makeRequest();
    auto task = recognizer->startTask(request, [&called](const auto&, const auto&) { called = true; });
    request.reset();
    task.reset();
    ErrorBox errors;
    const auto next = recognition_.makeRequest();
    const auto nextTask = recognizer->startTask(next, errors.handler());
    clock_.advance(1s);
    recognizer->setVocabulary(RecognitionVocabulary());
    // The next session's error says that the thread has seen to both.
    EXPECT_EQ(errors.waitForOne().size(), 1);
    EXPECT_FALSE(called);
}

TEST_F(OfflineSpeechRecognitionTest, SessionsRestartedWhileSoundArrives_EndCleanly) {
    const auto recognizer = recognition_.makeRecognizer(english);
    Noise noise;
    const std::vector<float> block = noise(-30, 20ms);
    for (int i = 0; i < 20; ++i) {
        const auto request = recognition_.makeRequest();
        auto task = recognizer->startTask(request, [](const auto&, const auto&) {});
        std::thread audio([&request, &block] {
            for (int n = 0; n < 10; ++n) {
                append(*request, block);
            }
        });
        switch (i % 3) {
        case 0:
            task->finish();
            break;
        case 1:
            task->cancel();
            break;
        default:
            task.reset();
        }
        audio.join();
        request->endAudio();
    }
}

TEST_F(OfflineSpeechRecognitionTest, RequestOfAnotherMaker_StartsNoTask) {
    InlineSpeechRecognition other;
    EXPECT_FALSE(recognition_.makeRecognizer(english)->startTask(other.makeRequest(),
                                                                 [](const auto&, const auto&) {}));
}

TEST(InlineSpeechRecognition, SessionOfSixtySeconds_EndsWithinTheCallThatBringsIt) {
    InlineSpeechRecognition recognition;
    const auto recognizer = recognition.makeRecognizer(english);
    ASSERT_TRUE(recognizer);
    Deliveries deliveries;
    const auto request = recognition.makeRequest();
    const auto task = recognizer->startTask(request, deliveries.handler());
    Noise noise;
    append(*request, noise(Noise::silence, 59s));
    EXPECT_THAT(deliveries.lines, testing::IsEmpty());
    append(*request, noise(Noise::silence, 1s));
    EXPECT_EQ(deliveries.lines.size(), 1);
    request->endAudio();
    task->finish();
    EXPECT_EQ(deliveries.lines.size(), 1);
}

TEST(InlineSpeechRecognition, TaskThatIsLetGo_EndsNothing) {
    InlineSpeechRecognition recognition;
    const auto recognizer = recognition.makeRecognizer(english);
    ASSERT_TRUE(recognizer);
    Deliveries deliveries;
    const auto request = recognition.makeRequest();
    recognizer->startTask(request, deliveries.handler()).reset();
    Noise noise;
    append(*request, noise(Noise::silence, 60s));
    EXPECT_EQ(deliveries.lines.size(), 1);
}

TEST(InlineSpeechRecognition, TaskCancelledByItsHandler_DeliversNothingMore) {
    InlineSpeechRecognition recognition;
    const auto recognizer = recognition.makeRecognizer(english);
    int calls = 0;
    const auto request = recognition.makeRequest();
    std::unique_ptr<SpeechRecognitionTask> task;
    task = recognizer->startTask(request, [&](const auto&, const auto&) {
        ++calls;
        task->cancel();
        request->endAudio();
    });
    Noise noise;
    append(*request, noise(Noise::silence, 65s));
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace brivandel
