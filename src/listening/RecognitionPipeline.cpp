#include "listening/RecognitionPipeline.h"

#include "listening/LevelMeter.h"
#include "listening/LogText.h"
#include "platform/AudioDevices.h"
#include "platform/DiagnosticLog.h"

#include <array>
#include <utility>

namespace brivandel {

using namespace std::chrono_literals;

namespace {

const QString locale = QStringLiteral("en-US");
constexpr std::uint32_t tapBufferFrameCount = 1024;
constexpr auto sessionTime = 45s;
constexpr auto engineRetryDelay = 1s;
constexpr auto restartsAreRecentFor = 5s;

} // namespace

RecognitionPipeline::RecognitionPipeline(const Services& services, RecognitionPipelineObserver& observer)
    : services_(services)
    , observer_(observer)
    , speechRecognizer_(services.speechRecognition.makeRecognizer(locale)) {
    if (speechRecognizer_) {
        speechRecognizer_->setVerdictHandler([&log = services.log](const UtteranceVerdict& verdict) {
            if (!verdict.isAccepted) {
                log.write(QStringLiteral("Passed over: “%1” — %2 (score %3)")
                              .arg(verdict.text, verdict.reason, QString::number(verdict.score, 'f', 1)));
            }
        });
    }
}

void RecognitionPipeline::setVocabulary(const RecognitionVocabulary& vocabulary) {
    if (speechRecognizer_) {
        speechRecognizer_->setVocabulary(vocabulary);
    }
}

void RecognitionPipeline::startListening() {
    services_.log.write(QStringLiteral("startListening() called — isRestarting=") + logText(isRestarting_));

    // A tap that is still installed may be using the request that is replaced: it is let go here, not on its
    // thread.
    const auto replaced = std::exchange(recognitionRequest_, services_.speechRecognition.makeRequest());
    if (!recognitionRequest_) {
        observer_.pipelineShowsStatus(QStringLiteral("Unable to create recognition request"));
        return;
    }
    recognitionRequest_->setShouldReportPartialResults(true);
    handledCommand_ = false;
    observer_.pipelineBeginsSession();

    beginTask();
    removeTap();
    applySelectedAudioDevice();
    installTap();
    startEngine();
}

void RecognitionPipeline::beginTask() {
    recognitionTask_.reset();
    if (!speechRecognizer_) {
        return;
    }
    const auto life = std::make_shared<TaskLife>();
    taskLife_ = life;
    auto heard = lifeline_.guard([this, life](const QString& transcript) {
        if (!life->isCancelled) {
            observer_.pipelineHeard(transcript);
        }
    });
    auto failed = lifeline_.guard([this, life](const QString& description) {
        if (!life->isCancelled) {
            handleError(description);
        }
    });
    recognitionTask_ = speechRecognizer_->startTask(
        recognitionRequest_,
        [&mainQueue = services_.mainQueue, heard, failed](const std::optional<RecognitionResult>& result,
                                                          const std::optional<QString>& error) {
            if (result) {
                mainQueue.post([heard, text = result->formattedString.toLower()]() mutable { heard(text); });
            }
            if (error) {
                mainQueue.post([failed, description = *error]() mutable { failed(description); });
            }
        });
}

void RecognitionPipeline::removeTap() {
    if (tapInstalled_) {
        services_.audioEngine.removeTap();
        tapInstalled_ = false;
    }
}

void RecognitionPipeline::applySelectedAudioDevice() {
    const auto uid = observer_.pipelineDeviceUID();
    if (!uid) {
        services_.audioEngine.followDefaultInput();
        return;
    }
    // Not plugged in at present: the engine keeps the device that it had.
    const auto device = services_.audioDevices.deviceIDForUID(*uid);
    if (!device) {
        return;
    }
    if (const auto status = services_.audioEngine.setInputDevice(*device); status != 0) {
        services_.log.write(QStringLiteral("Failed to set audio device (OSStatus %1)").arg(status));
    } else {
        services_.log.write(QStringLiteral("Audio input set to device UID: ") + *uid);
    }
}

void RecognitionPipeline::installTap() {
    const AudioFormat format = services_.audioEngine.inputFormat();
    services_.log.write(
        QStringLiteral("Input format — sampleRate: %1, channels: %2, formatID: %3, bitsPerChannel: %4")
            .arg(logText(format.sampleRateHz))
            .arg(format.channelCount)
            .arg(format.formatID)
            .arg(format.bitsPerChannel));
    services_.audioEngine.installTap(tapBufferFrameCount, format, tapBlock(format));
    tapInstalled_ = true;
}

// Runs on the audio thread: it copies into the request, sums the level, and allocates no more than the hop to
// the main thread takes.
AudioEngine::TapBlock RecognitionPipeline::tapBlock(const AudioFormat& format) {
    std::weak_ptr<SpeechRecognitionRequest> request = recognitionRequest_;
    auto measured = lifeline_.guard([this](float level) { observer_.pipelineMeasured(level); });
    auto measure = [&mainQueue = services_.mainQueue, measured](const AudioBuffer& buffer) {
        if (buffer.frameLength > 0) {
            const float level = LevelMeter::rootMeanSquare({buffer.channels[0], buffer.frameLength});
            mainQueue.post([measured, level]() mutable { measured(level); });
        }
    };

    if (format.channelCount < 3) {
        return [request, measure](const AudioBuffer& buffer) {
            if (const auto live = request.lock()) {
                live->append(buffer);
            }
            if (!buffer.channels.empty() && buffer.channels[0] != nullptr) {
                measure(buffer);
            }
        };
    }

    // Interfaces with many inputs are common, and a recogniser takes one channel: the first is the voice.
    services_.log.write(
        QStringLiteral("Multi-channel input (%1ch) — extracting ch0 as mono").arg(format.channelCount));
    return [request, measure](const AudioBuffer& buffer) {
        if (buffer.channels.empty() || buffer.channels[0] == nullptr) {
            return;
        }
        const std::array<const float*, 1> first = {buffer.channels[0]};
        const AudioBuffer mono{buffer.sampleRateHz, buffer.frameLength, first};
        if (const auto live = request.lock()) {
            live->append(mono);
        }
        measure(mono);
    };
}

void RecognitionPipeline::startEngine() {
    services_.audioEngine.prepare();
    if (const auto failure = services_.audioEngine.start()) {
        services_.log.write(QStringLiteral("Audio engine failed: %1 — retrying in 1s").arg(*failure));
        services_.mainQueue.postAfter(engineRetryDelay, lifeline_.guard([this] { retryEngine(); }));
        return;
    }
    services_.mainQueue.post(lifeline_.guard([this] { sessionStarted(); }));
}

void RecognitionPipeline::sessionStarted() {
    if (!recognitionRequest_) {
        return; // it ended in the turn in which it began
    }
    observer_.pipelineShowsStatus(observer_.pipelineReadyStatus());
    restartTimer_ = services_.mainQueue.startTimer(sessionTime, [this] {
        if (observer_.pipelineIsWanted() && !observer_.pipelineIsAwake() && !handledCommand_) {
            restartRecognition();
        }
    });
}

void RecognitionPipeline::retryEngine() {
    if (!observer_.pipelineIsWanted()) {
        return;
    }
    services_.audioEngine.prepare();
    if (const auto failure = services_.audioEngine.start()) {
        observer_.pipelineShowsStatus(QStringLiteral("Audio engine error: ") + *failure);
        services_.log.write(QStringLiteral("Audio engine retry also failed: ") + *failure);
        return;
    }
    // No session timer on this path: a session that began late is renewed by the recogniser's own end.
    services_.log.write(QStringLiteral("Audio engine retry succeeded"));
    observer_.pipelineShowsStatus(observer_.pipelineReadyStatus());
}

void RecognitionPipeline::handleError(const QString& description) {
    const bool isWanted = observer_.pipelineIsWanted();
    services_.log.write(QStringLiteral("Recognition error: %1 — isListening=%2 isRestarting=%3")
                            .arg(description, logText(isWanted), logText(isRestarting_)));
    if (isWanted && !isRestarting_) {
        restartRecognition();
    }
}

void RecognitionPipeline::restartRecognition() {
    if (isRestarting_) {
        services_.log.write(QStringLiteral("restartRecognition() skipped — already restarting"));
        return;
    }
    isRestarting_ = true;
    services_.log.write(QStringLiteral("restartRecognition() — tearing down"));
    finishListening();

    const auto delay = countRestart();
    services_.log.write(QStringLiteral("Restart delay: %1s (recent restarts: %2)")
                            .arg(logText(std::chrono::duration<double>(delay).count()))
                            .arg(recentRestartCount_));
    services_.mainQueue.postAfter(delay, lifeline_.guard([this] {
        isRestarting_ = false;
        if (observer_.pipelineIsWanted()) {
            startListening();
        }
    }));
}

void RecognitionPipeline::finishListening() {
    restartTimer_.reset();
    const auto request = std::exchange(recognitionRequest_, nullptr);
    const auto task = std::exchange(recognitionTask_, nullptr);
    services_.audioEngine.stop();
    removeTap();
    if (request) {
        request->endAudio();
    }
    if (task) {
        task->finish(); // and not cancelled: what it has already heard still counts
    }
}

std::chrono::milliseconds RecognitionPipeline::countRestart() {
    const auto now = services_.mainQueue.now();
    const bool isRecent = lastRestartTime_ && now - *lastRestartTime_ < restartsAreRecentFor;
    recentRestartCount_ = isRecent ? recentRestartCount_ + 1 : 0;
    lastRestartTime_ = now;
    switch (recentRestartCount_) {
    case 0:
        return 300ms;
    case 1:
        return 600ms;
    default:
        return 1000ms;
    }
}

void RecognitionPipeline::stopListening() {
    services_.audioEngine.stop();
    removeTap();
    if (recognitionRequest_) {
        recognitionRequest_->endAudio();
    }
    if (recognitionTask_) {
        recognitionTask_->cancel();
        taskLife_->isCancelled = true;
    }
    recognitionRequest_.reset();
    recognitionTask_.reset();
    isRestarting_ = false;
    if (restartTimer_) {
        restartTimer_->invalidate();
    }
}

} // namespace brivandel
