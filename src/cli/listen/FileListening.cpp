#include "cli/listen/FileListening.h"

#include "cli/listen/FileAudioEngine.h"
#include "cli/listen/ListenReport.h"
#include "cli/listen/ObservedServices.h"
#include "cli/listen/SilentServices.h"
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

// One file, with the controller that listens to it.
class FileSession {
public:
    FileSession(const AudioFormat& format, SpeechRecognition& recognition,
                const FileListeningOptions& options, ListenReport& report)
        : options_(options) {
        auto mainQueue = std::make_unique<VirtualMainQueue>();
        mainQueue_ = mainQueue.get();
        auto audioEngine = std::make_unique<FileAudioEngine>(format);
        audioEngine_ = audioEngine.get();

        platform_.workQueue = std::make_unique<ScriptedWorkQueue>(*mainQueue);
        platform_.pronunciations = std::make_shared<ScriptedPronunciationGuide>();
        platform_.mainQueue = std::move(mainQueue);
        platform_.log = std::make_unique<SilentServices>();
        platform_.keyboardLayout = std::make_unique<ScriptedKeyboardLayout>();
        platform_.permissions = std::make_unique<SilentServices>();
        platform_.notifier = std::make_unique<SilentServices>();
        platform_.beeper = std::make_unique<SilentServices>();
        platform_.scriptHost = std::make_unique<ObservedScriptHost>(
            options.scriptHost, [this, &report](const auto& error) { report.script(seconds(), error); });
        platform_.target = std::make_unique<ScriptedTargetInquiry>();
        platform_.defaults = std::make_unique<MemoryDefaultsStore>(options.storedObjects);
        platform_.audioDevices = std::make_unique<NoAudioDevices>();
        platform_.audioEngine = std::move(audioEngine);
        platform_.speechRecognition = std::make_unique<ObservedRecognition>(
            recognition,
            ObservedRecognition::Show{
                [this, &report](const RecognitionResult& result) { report.heard(seconds(), result); },
                [this, &report](const UtteranceVerdict& verdict) { report.judged(seconds(), verdict); }});

        controller_ = std::make_unique<VoiceController>(platform_);
        QObject::connect(controller_.get(), &VoiceController::willAct, controller_.get(),
                         [this, &report](const Decision& decision) {
                             report.command(seconds(), controller_->lastTranscript(),
                                            controller_->useWakeWord(), decision);
                         });
        mainQueue_->runDue();
        controller_->setIsListening(true);
        mainQueue_->runDue();
        start_ = std::chrono::steady_clock::now();
        if (options.inRealTime) {
            report.began(start_);
        }
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
                  ListenReport& report) {
    FileSession session(file.format(), recognition, options, report);
    while (const auto buffer = file.read(blockFrameCount)) {
        session.feed(*buffer);
    }
    session.feedSilence(file.format());
}

} // namespace brivandel
