#pragma once

#include "listening/RecognitionPipeline.h"

#include <QObject>
#include <QString>

#include <optional>

namespace brivandel {

class VoiceController;
struct Platform;

/// A phrase that is spoken to see what it would do: it is recognised as while listening, and nothing is done
/// about it. Only while the controller does not listen, which has the microphone then; a trial that is under
/// way when it starts to listen is given up. Main thread.
class SpokenTrial final : public QObject, private RecognitionPipelineObserver {
    Q_OBJECT
public:
    /// Both must outlive it.
    SpokenTrial(VoiceController& controller, Platform& platform);
    ~SpokenTrial() override;

    [[nodiscard]] bool isAvailable() const;
    [[nodiscard]] bool isListening() const { return isListening_; }
    /// How it goes, for people: that it listens, or why it could not; empty before the first trial and after
    /// one that went well.
    [[nodiscard]] const QString& status() const { return status_; }

    /// Listens until it is ended.
    void begin();
    /// What was said until now is still reported.
    void end();

Q_SIGNALS:
    /// Everything said since it began, in lower case; again when more was understood.
    void heard(const QString& transcript);
    /// Whether it listens or can be begun, and its status.
    void stateChanged();

private:
    void controllerListensOrStops();
    void leave();

    [[nodiscard]] bool pipelineIsWanted() const override { return isListening_; }
    [[nodiscard]] bool pipelineIsAwake() const override { return true; } // so that no session is renewed
    [[nodiscard]] std::optional<QString> pipelineDeviceUID() const override;
    [[nodiscard]] QString pipelineReadyStatus() const override;
    void pipelineShowsStatus(const QString& status) override;
    void pipelineBeginsSession() override {}
    void pipelineHeard(const QString& transcript) override;
    void pipelineMeasured(float /*rootMeanSquare*/) override {}

    VoiceController& controller_;
    Platform& platform_;
    std::optional<RecognitionPipeline>
        pipeline_; // a new one each time: what the last still reports is dropped
    bool isListening_ = false;
    QString status_;
};

} // namespace brivandel
