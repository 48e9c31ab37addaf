#include "cli/listen/FileListening.h"

#include "cli/listen/FileAudioEngine.h"
#include "listening/VoiceController.h"
#include "platform/Platform.h"
#include "platform/scripted/MemoryDefaultsStore.h"
#include "platform/scripted/ScriptedServices.h"
#include "platform/scripted/VirtualMainQueue.h"

#include <QObject>

#include <chrono>
#include <thread>
#include <utility>
#include <vector>

namespace brivandel {

using namespace std::chrono_literals;

namespace {

constexpr std::uint32_t blockFrameCount = 1024;
// Long enough for the recogniser to notice that an utterance at the very end of a file is over.
constexpr auto silenceAfterFile = 1500ms;

// Passes the recogniser on, and shows what it delivers.
class ShownRecognizer final : public SpeechRecognizer {
public:
    using Show = std::function<void(const RecognitionResult&)>;

    ShownRecognizer(std::unique_ptr<SpeechRecognizer> recognizer, Show show)
        : recognizer_(std::move(recognizer))
        , show_(std::move(show)) {}

    void setVocabulary(const RecognitionVocabulary& vocabulary) override {
        recognizer_->setVocabulary(vocabulary);
    }

    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        return recognizer_->startTask(std::move(request), [show = show_, handler = std::move(handler)](
                                                              const auto& result, const auto& error) {
            if (result) {
                show(*result);
            }
            handler(result, error);
        });
    }

private:
    std::unique_ptr<SpeechRecognizer> recognizer_;
    Show show_;
};

class ShownRecognition final : public SpeechRecognition {
public:
    ShownRecognition(SpeechRecognition& recognition, ShownRecognizer::Show show)
        : recognition_(recognition)
        , show_(std::move(show)) {}

    std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override {
        auto recognizer = recognition_.makeRecognizer(locale);
        return recognizer ? std::make_unique<ShownRecognizer>(std::move(recognizer), show_) : nullptr;
    }
    std::shared_ptr<SpeechRecognitionRequest> makeRequest() override { return recognition_.makeRequest(); }

private:
    SpeechRecognition& recognition_;
    ShownRecognizer::Show show_;
};

// Runs scripts on the host that it is given, and shows how they end.
class ShownScriptHost final : public ScriptHost {
public:
    using Show = std::function<void(const std::optional<ScriptErrorDictionary>&)>;

    ShownScriptHost(ScriptHost* host, Show show) : host_(host), show_(std::move(show)) {}

    std::optional<ScriptErrorDictionary> run(const QString& source) override {
        if (host_ == nullptr) {
            return std::nullopt;
        }
        auto error = host_->run(source);
        show_(error);
        return error;
    }

private:
    ScriptHost* host_;
    Show show_;
};

// Sound that is already there needs nobody's permission, and nothing but the events is shown.
class SilentServices final : public Permissions, public Notifier, public Beeper, public DiagnosticLog {
public:
    void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) override {
        answer(SpeechAuthorization::Authorized);
    }
    void requestMicrophoneAccess(std::function<void(bool)> answer) override { answer(true); }
    void requestNotificationAuthorization() override {}
    void deliver(const Notification& /*notification*/) override {}
    void beep() override {}
    void write(const QString& /*message*/) override {}
};

// One file, with the controller that listens to it.
class FileSession {
public:
    FileSession(const AudioFormat& format, SpeechRecognition& recognition,
                const FileListeningOptions& options, const FileListeningEvents& events)
        : options_(options) {
        auto mainQueue = std::make_unique<VirtualMainQueue>();
        mainQueue_ = mainQueue.get();
        auto audioEngine = std::make_unique<FileAudioEngine>(format);
        audioEngine_ = audioEngine.get();

        platform_.workQueue = std::make_unique<ScriptedWorkQueue>(*mainQueue);
        platform_.mainQueue = std::move(mainQueue);
        platform_.log = std::make_unique<SilentServices>();
        platform_.keyboardLayout = std::make_unique<ScriptedKeyboardLayout>();
        platform_.permissions = std::make_unique<SilentServices>();
        platform_.notifier = std::make_unique<SilentServices>();
        platform_.beeper = std::make_unique<SilentServices>();
        platform_.scriptHost = std::make_unique<ShownScriptHost>(
            options.scriptHost, [this, &events](const auto& error) { events.script(seconds(), error); });
        platform_.defaults = std::make_unique<MemoryDefaultsStore>(options.storedObjects);
        platform_.audioDevices = std::make_unique<NoAudioDevices>();
        platform_.audioEngine = std::move(audioEngine);
        platform_.speechRecognition =
            std::make_unique<ShownRecognition>(recognition, [this, &events](const RecognitionResult& result) {
                events.heard(seconds(), result);
            });

        controller_ = std::make_unique<VoiceController>(platform_);
        QObject::connect(controller_.get(), &VoiceController::willAct, controller_.get(),
                         [this, &events](const Decision& decision) {
                             events.command(seconds(), controller_->lastTranscript(),
                                            controller_->useWakeWord(), decision);
                         });
        mainQueue_->runDue();
        controller_->setIsListening(true);
        mainQueue_->runDue();
        start_ = std::chrono::steady_clock::now();
        events.began(start_);
    }

    void feed(const AudioBuffer& buffer) {
        const std::chrono::duration<double> length{buffer.frameLength / buffer.sampleRateHz};
        const auto whole = std::chrono::duration_cast<VirtualMainQueue::Duration>(length + remainder_);
        remainder_ += length - whole;
        if (options_.inRealTime) {
            std::this_thread::sleep_until(start_ + mainQueue_->elapsed() + whole);
        }
        // The block is there once its time has passed.
        mainQueue_->advance(whole);
        audioEngine_->feed(buffer);
        mainQueue_->runDue();
    }

    void feedSilence(const AudioFormat& format) {
        const std::vector<float> silence(blockFrameCount, 0.0F);
        const std::vector<const float*> channels(format.channelCount, silence.data());
        const auto end = mainQueue_->elapsed() + silenceAfterFile;
        while (mainQueue_->elapsed() < end) {
            feed({format.sampleRateHz, blockFrameCount, channels});
        }
    }

private:
    [[nodiscard]] double seconds() const {
        return std::chrono::duration<double>(mainQueue_->elapsed()).count();
    }

    const FileListeningOptions& options_;
    Platform platform_;
    VirtualMainQueue* mainQueue_ = nullptr;
    FileAudioEngine* audioEngine_ = nullptr;
    std::unique_ptr<VoiceController> controller_;
    std::chrono::steady_clock::time_point start_;
    std::chrono::duration<double> remainder_{};
};

} // namespace

void listenToFile(WaveFile& file, SpeechRecognition& recognition, const FileListeningOptions& options,
                  const FileListeningEvents& events) {
    FileSession session(file.format(), recognition, options, events);
    while (const auto buffer = file.read(blockFrameCount)) {
        session.feed(*buffer);
    }
    session.feedSilence(file.format());
}

} // namespace brivandel
