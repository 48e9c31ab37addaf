#pragma once

#include "platform/AudioEngine.h"
#include "platform/Lifeline.h"
#include "platform/MainQueue.h"
#include "platform/SpeechRecognition.h"

#include <QString>

#include <memory>
#include <optional>

namespace brivandel {

class AudioDevices;
class DiagnosticLog;

/// What a pipeline asks of its surroundings and tells them. Main thread, except where it says otherwise.
class RecognitionPipelineObserver {
public:
    virtual ~RecognitionPipelineObserver() = default;

    [[nodiscard]] virtual bool pipelineIsWanted() const = 0;
    [[nodiscard]] virtual bool pipelineIsAwake() const = 0;
    [[nodiscard]] virtual std::optional<QString> pipelineDeviceUID() const = 0;
    /// What is shown once sound arrives.
    [[nodiscard]] virtual QString pipelineReadyStatus() const = 0;

    virtual void pipelineShowsStatus(const QString& status) = 0;
    /// A session begins: nothing has been said in it.
    virtual void pipelineBeginsSession() = 0;
    /// In the order of arrival, in lower case.
    virtual void pipelineHeard(const QString& transcript) = 0;
    /// The root mean square of a block of channel 0.
    virtual void pipelineMeasured(float rootMeanSquare) = 0;
};

/// Microphone to transcript: one recognition session after another on one audio engine, with recovery from
/// errors of both. A session ends when something was carried out, when the recogniser reports an error, or
/// after 45 seconds in which nobody woke it; the next begins after a delay that grows while restarts come
/// fast. Main thread.
class RecognitionPipeline {
public:
    struct Services {
        MainQueue& mainQueue;
        SpeechRecognition& speechRecognition;
        AudioEngine& audioEngine;
        AudioDevices& audioDevices;
        DiagnosticLog& log;
    };

    RecognitionPipeline(const Services& services, RecognitionPipelineObserver& observer);

    void startListening();
    void restartRecognition();
    void stopListening();
    /// No more sound is taken; what was said until now is still reported.
    void finishListening();

    /// What the recogniser should listen for, from the next utterance on.
    void setVocabulary(const RecognitionVocabulary& vocabulary);

    /// True once this session has acted on what was said: what it still reports is not acted on.
    [[nodiscard]] bool handledCommand() const { return handledCommand_; }
    void setHandledCommand() { handledCommand_ = true; }

    /// A command was carried out: the restart that follows it is not counted towards the back-off.
    void forgetRecentRestarts() { recentRestartCount_ = 0; }

private:
    // Shared with what a task has on its way to the main thread: once the task is cancelled, that is dropped.
    struct TaskLife {
        bool isCancelled = false;
    };

    void beginTask();
    void installTap();
    [[nodiscard]] AudioEngine::TapBlock tapBlock(const AudioFormat& format);
    void removeTap();
    void applySelectedAudioDevice();
    void startEngine();
    void retryEngine();
    void sessionStarted();
    void handleError(const QString& description);
    [[nodiscard]] std::chrono::milliseconds countRestart();

    Services services_;
    RecognitionPipelineObserver& observer_;
    std::unique_ptr<SpeechRecognizer> speechRecognizer_;
    std::shared_ptr<SpeechRecognitionRequest> recognitionRequest_;
    std::unique_ptr<SpeechRecognitionTask> recognitionTask_;
    std::shared_ptr<TaskLife> taskLife_;
    std::unique_ptr<Timer> restartTimer_; // renews a session in which nothing happens
    bool tapInstalled_ = false;
    bool isRestarting_ = false;
    bool handledCommand_ = false;
    int recentRestartCount_ = 0;
    std::optional<MainQueue::TimePoint> lastRestartTime_;
    Lifeline lifeline_;
};

} // namespace brivandel
