#include "listening/SpokenTrial.h"

#include "engine/SpokenPhrases.h"
#include "listening/VoiceController.h"
#include "platform/Platform.h"

namespace brivandel {

namespace {

const QString startingStatus = QStringLiteral("Starting...");

} // namespace

SpokenTrial::SpokenTrial(VoiceController& controller, Platform& platform)
    : controller_(controller)
    , platform_(platform) {
    // The controller says so before it touches the microphone.
    connect(&controller, &VoiceController::isListeningChanged, this, &SpokenTrial::controllerListensOrStops);
}

SpokenTrial::~SpokenTrial() {
    if (isListening_) {
        pipeline_->stopListening();
    }
}

bool SpokenTrial::isAvailable() const {
    return !controller_.isListening();
}

void SpokenTrial::begin() {
    if (isListening_ || !isAvailable()) {
        return;
    }
    isListening_ = true;
    status_ = startingStatus;
    RecognitionPipelineObserver& observer = *this;
    pipeline_.emplace(RecognitionPipeline::Services{*platform_.mainQueue, *platform_.speechRecognition,
                                                    *platform_.audioEngine, *platform_.audioDevices,
                                                    *platform_.log},
                      observer);
    pipeline_->setVocabulary(spokenPhrases(controller_.wakeWord(), controller_.useWakeWord(),
                                           controller_.builtInTriggerOverrides(),
                                           controller_.customCommands()));
    pipeline_->startListening();
    Q_EMIT stateChanged();
}

void SpokenTrial::end() {
    if (!isListening_) {
        return;
    }
    pipeline_->finishListening();
    leave();
    Q_EMIT stateChanged();
}

void SpokenTrial::controllerListensOrStops() {
    if (isListening_ && controller_.isListening()) {
        pipeline_->stopListening();
        leave();
    }
    Q_EMIT stateChanged();
}

// What went wrong stays to be read.
void SpokenTrial::leave() {
    isListening_ = false;
    if (status_ == startingStatus || status_ == pipelineReadyStatus()) {
        status_.clear();
    }
}

std::optional<QString> SpokenTrial::pipelineDeviceUID() const {
    return controller_.selectedAudioDevice();
}

QString SpokenTrial::pipelineReadyStatus() const {
    return QStringLiteral("Listening...");
}

void SpokenTrial::pipelineShowsStatus(const QString& status) {
    status_ = status;
    Q_EMIT stateChanged();
}

void SpokenTrial::pipelineHeard(const QString& transcript) {
    Q_EMIT heard(transcript);
}

} // namespace brivandel
