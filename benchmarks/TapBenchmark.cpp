// What a block of sound costs the audio thread: the copy for the recogniser, the level, the hop to the main
// thread. 21.3 ms of sound at 48 kHz are in a block.

#include "AllocationCount.h"
#include "listening/RecognitionPipeline.h"
#include "platform/linux/recognition/SoundStream.h"
#include "platform/linux/recognition/WakeUp.h"
#include "platform/qt/QtMainQueue.h"
#include "platform/scripted/ScriptedAudio.h"
#include "platform/scripted/ScriptedServices.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <utility>
#include <vector>

namespace brivandel {
namespace {

constexpr std::uint32_t frameCount = 1024;

class TapHolder final : public AudioEngine {
public:
    explicit TapHolder(std::uint32_t channelCount) : format_{.channelCount = channelCount} {}

    [[nodiscard]] AudioFormat inputFormat() override { return format_; }
    void installTap(std::uint32_t /*bufferSizeFrames*/, const AudioFormat& /*format*/,
                    TapBlock block) override {
        tap = std::move(block);
    }
    void removeTap() override { tap = nullptr; }
    void prepare() override {}
    std::optional<QString> start() override { return std::nullopt; }
    void stop() override {}
    void followDefaultInput() override {}
    std::int32_t setInputDevice(AudioDeviceID /*device*/) override { return 0; }

    TapBlock tap;

private:
    AudioFormat format_;
};

// The recogniser's side of the audio thread, and nobody behind it.
class StreamRequest final : public SpeechRecognitionRequest {
public:
    explicit StreamRequest(std::shared_ptr<SoundStream> sound) : sound_(std::move(sound)) {}
    void setShouldReportPartialResults(bool /*report*/) override {}
    void append(const AudioBuffer& buffer) override { sound_->append(buffer); }
    void endAudio() override {}

private:
    std::shared_ptr<SoundStream> sound_;
};

class StreamRecognition final : public SpeechRecognition {
public:
    std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& /*locale*/) override { return nullptr; }
    std::shared_ptr<SpeechRecognitionRequest> makeRequest() override {
        return std::make_shared<StreamRequest>(sound);
    }
    // As the recogniser's thread does.
    void drain() {
        wakeUp->wait(std::chrono::milliseconds(0));
        sound->read(samples_, SoundStream::capacity);
    }

    std::shared_ptr<WakeUp> wakeUp = std::make_shared<WakeUp>();
    std::shared_ptr<SoundStream> sound = std::make_shared<SoundStream>(wakeUp);

private:
    std::vector<float> samples_;
};

class Listener final : public RecognitionPipelineObserver {
public:
    [[nodiscard]] bool pipelineIsWanted() const override { return true; }
    [[nodiscard]] bool pipelineIsAwake() const override { return false; }
    [[nodiscard]] std::optional<QString> pipelineDeviceUID() const override { return std::nullopt; }
    [[nodiscard]] QString pipelineReadyStatus() const override { return {}; }
    void pipelineShowsStatus(const QString& /*status*/) override {}
    void pipelineBeginsSession() override {}
    void pipelineHeard(const QString& /*transcript*/) override {}
    void pipelineMeasured(float rootMeanSquare) override { benchmark::DoNotOptimize(rootMeanSquare); }
};

void tap(benchmark::State& state) {
    const auto channelCount = static_cast<std::uint32_t>(state.range(0));
    QtMainQueue mainQueue;
    StreamRecognition recognition;
    TapHolder engine(channelCount);
    ScriptedAudioDevices devices;
    ScriptedLog log([](auto, const auto&) {});
    Listener listener;
    RecognitionPipeline pipeline({mainQueue, recognition, engine, devices, log}, listener);
    pipeline.startListening();

    std::vector<float> samples(frameCount, 0.25F);
    const std::vector<const float*> channels(channelCount, samples.data());
    const AudioBuffer buffer{48000, frameCount, channels};
    using Clock = std::chrono::steady_clock;
    long allocations = 0;
    for (auto iteration : state) {
        const long before = allocationCount();
        const auto start = Clock::now();
        engine.tap(buffer);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        allocations += allocationCount() - before;
        recognition.drain();
        QCoreApplication::processEvents();
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocations), benchmark::Counter::kAvgIterations);
}

BENCHMARK(tap)->Name("tap/channels")->Arg(1)->Arg(2)->Arg(6)->UseManualTime();

} // namespace
} // namespace brivandel

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
