#include "listening/ThreadedPlatform.h"

#include "platform/qt/QtMainQueue.h"
#include "platform/qt/ThreadWorkQueue.h"
#include "platform/scripted/MemoryDefaultsStore.h"
#include "platform/scripted/ScriptedAudio.h"
#include "platform/scripted/ScriptedServices.h"

#include <array>
#include <condition_variable>
#include <mutex>
#include <semaphore>
#include <thread>
#include <utility>
#include <vector>

namespace brivandel {

namespace {

class ThreadedAudioEngine final : public AudioEngine {
public:
    ThreadedAudioEngine(MainQueue& mainQueue, ThreadedCounts& counts)
        : mainQueue_(mainQueue)
        , counts_(counts)
        , thread_([this] { capture(); }) {}
    ~ThreadedAudioEngine() override {
        change([this] { ending_ = true; });
        thread_.join();
    }
    Q_DISABLE_COPY_MOVE(ThreadedAudioEngine)

    [[nodiscard]] AudioFormat inputFormat() override { return {.channelCount = channelCount}; }
    void installTap(std::uint32_t /*bufferSizeFrames*/, const AudioFormat& /*format*/,
                    TapBlock block) override {
        change([this, &block] { tap_ = std::move(block); });
    }
    void removeTap() override {
        change([this] { tap_ = nullptr; });
    }
    void prepare() override {}
    std::optional<QString> start() override {
        change([this] { running_ = true; });
        return std::nullopt;
    }
    void stop() override {
        change([this] { running_ = false; });
    }
    void followDefaultInput() override {}
    std::int32_t setInputDevice(AudioDeviceID /*device*/) override { return 0; }

private:
    static constexpr std::uint32_t channelCount = 2;
    static constexpr std::uint32_t frameCount = 256;
    /// So many blocks may be on their way to the main thread.
    static constexpr int mostBlocksAhead = 8;

    template <typename Change>
    void change(Change apply) {
        const std::lock_guard lock(mutex_);
        apply();
        changed_.notify_all();
    }

    void capture() {
        const std::vector<float> samples(frameCount, 0.25F);
        const std::array<const float*, channelCount> channels = {samples.data(), samples.data()};
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock,
                          [this] { return ending_ || (running_ && tap_ && *ahead_ < mostBlocksAhead); });
            if (ending_) {
                return;
            }
            // With the lock held: whoever takes the tap away waits for the block that is under way.
            tap_({48000, frameCount, channels});
            ++counts_.blocks;
            ++*ahead_;
            mainQueue_.post([this, alive = std::weak_ptr(ahead_)] {
                if (!alive.expired()) {
                    change([this] { --*ahead_; });
                }
            });
        }
    }

    MainQueue& mainQueue_;
    ThreadedCounts& counts_;
    std::mutex mutex_;
    std::condition_variable changed_;
    TapBlock tap_;
    bool running_ = false;
    bool ending_ = false;
    std::shared_ptr<int> ahead_ = std::make_shared<int>(0);
    std::thread thread_;
};

/// What a request and its session share.
struct Sound {
    std::atomic<int> blocks = 0;
    std::atomic<bool> ended = false;
};

class ThreadedRecognition final : public SpeechRecognition {
public:
    ThreadedRecognition(Hearing hearing, ThreadedCounts& counts)
        : hearing_(hearing)
        , counts_(counts)
        , thread_([this] { recognise(); }) {}
    ~ThreadedRecognition() override {
        ending_ = true;
        wake();
        thread_.join();
    }
    Q_DISABLE_COPY_MOVE(ThreadedRecognition)

    std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& /*locale*/) override {
        return std::make_unique<Recognizer>(*this);
    }
    std::shared_ptr<SpeechRecognitionRequest> makeRequest() override {
        return std::make_shared<Request>(wakeUp_);
    }

private:
    using WakeUp = std::counting_semaphore<>;

    class Request final : public SpeechRecognitionRequest {
    public:
        explicit Request(std::shared_ptr<WakeUp> wakeUp) : wakeUp_(std::move(wakeUp)) {}
        void setShouldReportPartialResults(bool /*report*/) override {}
        void append(const AudioBuffer& /*buffer*/) override {
            ++sound->blocks;
            wakeUp_->release();
        }
        void endAudio() override {
            sound->ended = true;
            wakeUp_->release();
        }

        const std::shared_ptr<Sound> sound = std::make_shared<Sound>();

    private:
        std::shared_ptr<WakeUp> wakeUp_;
    };

    struct Session {
        int number = 0; ///< from 1; 0 for one that hears talk
        std::shared_ptr<Sound> sound;
        SpeechRecognizer::ResultHandler handler;
        std::mutex mutex;
        bool open = true;
        int delivered = 0;
    };

    class Task final : public SpeechRecognitionTask {
    public:
        explicit Task(std::shared_ptr<Session> session) : session_(std::move(session)) {}
        void finish() override { session_->sound->ended = true; }
        void cancel() override {
            const std::lock_guard lock(session_->mutex);
            session_->open = false;
        }

    private:
        std::shared_ptr<Session> session_;
    };

    class Recognizer final : public SpeechRecognizer {
    public:
        explicit Recognizer(ThreadedRecognition& owner) : owner_(owner) {}
        void setVocabulary(const RecognitionVocabulary& /*vocabulary*/) override {}
        std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                         ResultHandler handler) override {
            return owner_.begin(std::dynamic_pointer_cast<Request>(std::move(request))->sound,
                                std::move(handler));
        }

    private:
        ThreadedRecognition& owner_;
    };

    std::unique_ptr<SpeechRecognitionTask> begin(std::shared_ptr<Sound> sound,
                                                 SpeechRecognizer::ResultHandler handler) {
        auto session = std::make_shared<Session>();
        ++counts_.sessions;
        session->number = hearing_ == Hearing::Talk ? 0 : counts_.sessions.load();
        session->sound = std::move(sound);
        session->handler = std::move(handler);
        {
            const std::lock_guard lock(mutex_);
            sessions_.push_back(session);
        }
        return std::make_unique<Task>(session);
    }

    void wake() { wakeUp_->release(); }

    void recognise() {
        for (;;) {
            wakeUp_->acquire();
            if (ending_) {
                return;
            }
            const std::lock_guard lock(mutex_);
            std::erase_if(sessions_, [](const auto& session) { return !step(*session); });
        }
    }

    /// False when the session is over.
    static bool step(Session& session) {
        const bool ended = session.sound->ended;
        const std::lock_guard lock(session.mutex);
        while (session.open && session.delivered < session.sound->blocks / 2) {
            deliver(session);
        }
        if (ended && session.open && session.delivered > 0) {
            session.handler(RecognitionResult{QStringLiteral("it is a piano"), true}, std::nullopt);
        }
        return session.open && !ended;
    }

    static void deliver(Session& session) {
        constexpr std::array commands = {u"hey logic play", u"hey logic stop", u"hey logic undo"};
        const int turn = session.delivered++;
        if (session.number % 3 == 1) {
            const auto which = static_cast<std::size_t>(session.number / 3) % commands.size();
            const QString said =
                turn == 0 ? QStringLiteral("Hey Logic") : QString::fromUtf16(commands.at(which));
            session.handler(RecognitionResult{.formattedString = said}, std::nullopt);
        } else if (session.number % 3 == 2 && turn == 1) {
            session.handler(std::nullopt, QStringLiteral("No speech detected"));
            session.open = false;
        } else {
            session.handler(RecognitionResult{.formattedString = QStringLiteral("it is a piano")},
                            std::nullopt);
        }
    }

    Hearing hearing_;
    ThreadedCounts& counts_;
    std::shared_ptr<WakeUp> wakeUp_ = std::make_shared<WakeUp>(0);
    std::atomic<bool> ending_ = false;
    std::mutex mutex_;
    std::vector<std::shared_ptr<Session>> sessions_;
    std::thread thread_;
};

class ThreadedPermissions final : public Permissions {
public:
    ~ThreadedPermissions() override {
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }
    ThreadedPermissions() = default;
    Q_DISABLE_COPY_MOVE(ThreadedPermissions)

    void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) override {
        threads_.emplace_back([answer = std::move(answer)] { answer(SpeechAuthorization::Authorized); });
    }
    void requestMicrophoneAccess(std::function<void(bool granted)> answer) override {
        threads_.emplace_back([answer = std::move(answer)] { answer(true); });
    }
    void requestNotificationAuthorization() override {}

private:
    std::vector<std::thread> threads_;
};

class CountingScriptHost final : public ScriptHost {
public:
    explicit CountingScriptHost(ThreadedCounts& counts) : counts_(counts) {}
    std::optional<ScriptErrorDictionary> run(const QString& /*source*/) override {
        if (++counts_.scripts % 4 == 0) {
            return ScriptErrorDictionary{
                {QString::fromUtf16(ScriptErrorKey::message), QStringLiteral("Not allowed.")}};
        }
        return std::nullopt;
    }

private:
    ThreadedCounts& counts_;
};

class CountingServices final : public DiagnosticLog, public Beeper, public Notifier {
public:
    explicit CountingServices(ThreadedCounts& counts) : counts_(counts) {}
    void write(const QString& /*message*/) override { ++counts_.logLines; }
    void beep() override {}
    void deliver(const Notification& /*notification*/) override {}

private:
    ThreadedCounts& counts_;
};

} // namespace

std::unique_ptr<Platform> makeThreadedPlatform(Hearing hearing, ThreadedCounts& counts) {
    auto platform = std::make_unique<Platform>();
    platform->mainQueue = std::make_unique<QtMainQueue>();
    platform->log = std::make_unique<CountingServices>(counts);
    platform->keyboardLayout = std::make_unique<ScriptedKeyboardLayout>();
    platform->permissions = std::make_unique<ThreadedPermissions>();
    platform->notifier = std::make_unique<CountingServices>(counts);
    platform->beeper = std::make_unique<CountingServices>(counts);
    platform->scriptHost = std::make_unique<CountingScriptHost>(counts);
    platform->target = std::make_unique<ScriptedTargetInquiry>();
    platform->workQueue = std::make_unique<ThreadWorkQueue>();
    platform->pronunciations = std::make_shared<ScriptedPronunciationGuide>();
    platform->defaults = std::make_unique<MemoryDefaultsStore>();
    platform->audioDevices = std::make_unique<ScriptedAudioDevices>();
    platform->audioEngine = std::make_unique<ThreadedAudioEngine>(*platform->mainQueue, counts);
    platform->speechRecognition = std::make_unique<ThreadedRecognition>(hearing, counts);
    return platform;
}

} // namespace brivandel
