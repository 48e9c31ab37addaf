#include "listening/VoiceController.h"

#include "engine/SpokenPhrases.h"
#include "engine/WakePhrase.h"
#include "listening/CallStack.h"
#include "listening/LevelMeter.h"
#include "listening/LogText.h"
#include "platform/Platform.h"

#include <utility>

namespace brivandel {

VoiceController::VoiceController(Platform& platform, const Preparation& beforeLoading)
    : platform_(platform)
    , settings_(*platform.defaults)
    , executor_(
          {*platform.mainQueue, *platform.workQueue, *platform.scriptHost, *platform.beeper, *platform.log},
          *this)
    , pipeline_({*platform.mainQueue, *platform.speechRecognition, *platform.audioEngine,
                 *platform.audioDevices, *platform.log},
                *this)
    , idleMonitor_(
          *platform.mainQueue, *platform.notifier, *platform.log,
          {
              .isListening = [this] { return isListening_; },
              .settings =
                  [this] {
                      return IdleSettings{idleTimeoutMinutes_, autoDisableOnIdle_, idleReminderEnabled_};
                  },
              .disable = [this] { setIsListening(false); },
          }) {
    if (beforeLoading) {
        beforeLoading(*this);
    }
    loadSettings();
    vocabularyMayHaveChanged();
    requestPermissions();
}

VoiceController::~VoiceController() = default;

void VoiceController::loadSettings() {
    wakeWord_ = settings_.wakeWord();
    const auto storedUseWakeWord = settings_.useWakeWord();
    useWakeWord_ = storedUseWakeWord.value_or(false);
    const auto storedAudioFeedback = settings_.audioFeedback();
    audioFeedbackEnabled_ = storedAudioFeedback.value_or(false);
    selectedAudioDevice_ = settings_.audioDevice();
    idleTimeoutMinutes_ = settings_.idleTimeoutMinutes();
    autoDisableOnIdle_ = settings_.autoDisableOnIdle();
    idleReminderEnabled_ = settings_.idleReminderEnabled();

    // Seeded at the first launch, unlike the idle settings, which are stored when the user changes them.
    if (!storedUseWakeWord) {
        setUseWakeWord(true);
        settings_.setUseWakeWord(true);
    }
    if (!storedAudioFeedback) {
        setAudioFeedbackEnabled(true);
        settings_.setAudioFeedback(true);
    }

    // Stored again in the current form; what cannot be read stays as it is until the user saves something
    // else.
    if (const auto commands = settings_.customCommands()) {
        setCustomCommands(*commands);
        saveCustomCommands();
    }
    if (const auto overrides = settings_.triggerOverrides()) {
        setBuiltInTriggerOverrides(*overrides);
        saveTriggerOverrides();
    }
}

void VoiceController::requestPermissions() {
    auto& mainQueue = *platform_.mainQueue;

    auto speechAnswered = lifeline_.guard([this](SpeechAuthorization answer) {
        switch (answer) {
        case SpeechAuthorization::Authorized:
            return setStatusMessage(QStringLiteral("Ready"));
        case SpeechAuthorization::Denied:
            return setStatusMessage(QStringLiteral("Speech recognition denied"));
        case SpeechAuthorization::Restricted:
            return setStatusMessage(QStringLiteral("Speech recognition restricted"));
        case SpeechAuthorization::NotDetermined:
            return setStatusMessage(QStringLiteral("Speech recognition not determined"));
        }
        setStatusMessage(QStringLiteral("Unknown authorization status"));
    });
    platform_.permissions->requestSpeechAuthorization(
        [&mainQueue, speechAnswered](SpeechAuthorization answer) {
            mainQueue.post([speechAnswered, answer]() mutable { speechAnswered(answer); });
        });

    // Granted access says nothing: the answers come in either order, and a message about speech must stand.
    auto microphoneAnswered = lifeline_.guard([this](bool granted) {
        if (!granted) {
            setStatusMessage(QStringLiteral("Microphone access denied"));
        }
    });
    platform_.permissions->requestMicrophoneAccess([&mainQueue, microphoneAnswered](bool granted) {
        mainQueue.post([microphoneAnswered, granted]() mutable { microphoneAnswered(granted); });
    });

    platform_.permissions->requestNotificationAuthorization();
}

void VoiceController::logToFile(const QString& message) const {
    platform_.log->write(message);
}

template <typename Value>
void VoiceController::assign(Value& property, Value value, void (VoiceController::*changed)()) {
    Q_EMIT objectWillChange();
    property = std::move(value);
    Q_EMIT(this->*changed)();
}

void VoiceController::setIsListening(bool listening) {
    const bool old = isListening_;
    assign(isListening_, listening, &VoiceController::isListeningChanged);
    logToFile(QStringLiteral("isListening changed: %1 → %2").arg(logText(old), logText(listening)));
    constexpr int loggedFrames = 10;
    logToFile(QStringLiteral("Call stack: ") + callStackSymbols(loggedFrames));
    // An unchanged value acts, too: switching on again begins a new session.
    if (listening) {
        resetIdleTimer();
        startListening();
    } else {
        stopListening();
    }
}

void VoiceController::setLastCommand(const QString& command) {
    assign(lastCommand_, command, &VoiceController::lastCommandChanged);
}

void VoiceController::setStatusMessage(const QString& message) {
    assign(statusMessage_, message, &VoiceController::statusMessageChanged);
}

void VoiceController::setIsAwake(bool awake) {
    assign(isAwake_, awake, &VoiceController::isAwakeChanged);
}

void VoiceController::setLastTranscript(const QString& transcript) {
    assign(lastTranscript_, transcript, &VoiceController::lastTranscriptChanged);
}

void VoiceController::setCommandHistory(const CommandHistory& history) {
    assign(commandHistory_, history, &VoiceController::commandHistoryChanged);
}

void VoiceController::setAudioLevel(float level) {
    assign(audioLevel_, level, &VoiceController::audioLevelChanged);
}

void VoiceController::setWakeWord(const QString& wakeWord) {
    assign(wakeWord_, wakeWord, &VoiceController::wakeWordChanged);
    settings_.setWakeWord(wakeWord_);
    vocabularyMayHaveChanged();
}

void VoiceController::setUseWakeWord(bool use) {
    assign(useWakeWord_, use, &VoiceController::useWakeWordChanged);
    settings_.setUseWakeWord(useWakeWord_);
    vocabularyMayHaveChanged();
}

void VoiceController::setAudioFeedbackEnabled(bool enabled) {
    assign(audioFeedbackEnabled_, enabled, &VoiceController::audioFeedbackEnabledChanged);
    settings_.setAudioFeedback(audioFeedbackEnabled_);
}

void VoiceController::setSelectedAudioDevice(const std::optional<QString>& uid) {
    assign(selectedAudioDevice_, uid, &VoiceController::selectedAudioDeviceChanged);
    settings_.setAudioDevice(selectedAudioDevice_);
    if (isListening_) {
        restartRecognition();
    }
}

void VoiceController::setIdleTimeoutMinutes(qlonglong minutes) {
    assign(idleTimeoutMinutes_, minutes, &VoiceController::idleTimeoutMinutesChanged);
    settings_.setIdleTimeoutMinutes(idleTimeoutMinutes_);
}

void VoiceController::setAutoDisableOnIdle(bool disable) {
    assign(autoDisableOnIdle_, disable, &VoiceController::autoDisableOnIdleChanged);
    settings_.setAutoDisableOnIdle(autoDisableOnIdle_);
}

void VoiceController::setIdleReminderEnabled(bool enabled) {
    assign(idleReminderEnabled_, enabled, &VoiceController::idleReminderEnabledChanged);
    settings_.setIdleReminderEnabled(idleReminderEnabled_);
}

void VoiceController::setCustomCommands(const CustomCommandList& commands) {
    assign(customCommands_, commands, &VoiceController::customCommandsChanged);
    matcher_.setCustomCommands(customCommands_);
    vocabularyMayHaveChanged();
}

void VoiceController::saveCustomCommands() {
    settings_.setCustomCommands(customCommands_);
}

void VoiceController::setBuiltInTriggerOverrides(const TriggerOverrides& overrides) {
    assign(builtInTriggerOverrides_, overrides, &VoiceController::builtInTriggerOverridesChanged);
    matcher_.setTriggerOverrides(builtInTriggerOverrides_);
    vocabularyMayHaveChanged();
}

void VoiceController::saveTriggerOverrides() {
    settings_.setTriggerOverrides(builtInTriggerOverrides_);
}

// Once a turn of the loop, however much changes in it: a phrase is typed letter by letter.
void VoiceController::vocabularyMayHaveChanged() {
    if (std::exchange(vocabularyUpdatePending_, true)) {
        return;
    }
    platform_.mainQueue->post(lifeline_.guard([this] {
        vocabularyUpdatePending_ = false;
        pipeline_.setVocabulary(
            spokenPhrases(wakeWord_, useWakeWord_, builtInTriggerOverrides_, customCommands_));
    }));
}

QList<AudioDevice> VoiceController::getAvailableAudioDevices() const {
    return platform_.audioDevices->inputDevices();
}

void VoiceController::startListening() {
    pipeline_.startListening();
}

void VoiceController::restartRecognition() {
    pipeline_.restartRecognition();
}

void VoiceController::stopListening() {
    pipeline_.stopListening();
    setIsAwake(false);
    if (wakeWordTimeout_) {
        wakeWordTimeout_->invalidate();
    }
    idleMonitor_.invalidate();
    setAudioLevel(0);
    setStatusMessage(QStringLiteral("Stopped"));
}

void VoiceController::resetIdleTimer() {
    idleMonitor_.reset();
}

void VoiceController::handleRecognitionText(const QString& transcript) {
    setLastTranscript(transcript);
    if (pipeline_.handledCommand()) {
        return;
    }
    logToFile(QStringLiteral("Transcript: %1 | useWakeWord=%2 | isAwake=%3")
                  .arg(transcript, logText(useWakeWord_), logText(isAwake_)));
    if (!useWakeWord_) {
        matchAndExecute(transcript);
        return;
    }

    const auto command = textAfterWakePhrase(transcript, wakeWord_);
    if (!command) {
        setStatusMessage(QStringLiteral("Say '%1' to activate").arg(wakeWord_));
        return;
    }
    if (!isAwake_) {
        setIsAwake(true);
        setStatusMessage(QStringLiteral("Listening for command..."));
    }
    if (!command->isEmpty()) {
        matchAndExecute(*command);
    }
}

void VoiceController::matchAndExecute(QStringView text) {
    if (const auto decision = matcher_.match(text)) {
        std::visit([this](const auto& match) { act(match); }, *decision);
        restartRecognition();
    }
}

void VoiceController::act(const TriggerWordOn& match) {
    Q_EMIT willAct(match);
    switchTriggerWord(true);
}

void VoiceController::act(const TriggerWordOff& match) {
    Q_EMIT willAct(match);
    switchTriggerWord(false);
}

void VoiceController::switchTriggerWord(bool on) {
    pipeline_.setHandledCommand();
    setIsAwake(false);
    setUseWakeWord(on);
    setStatusMessage(on ? QStringLiteral("Trigger word enabled") : QStringLiteral("Trigger word disabled"));
    logToFile(on ? QStringLiteral("Trigger word enabled via voice command")
                 : QStringLiteral("Trigger word disabled via voice command"));
    if (audioFeedbackEnabled_) {
        platform_.beeper->beep();
    }
}

// Unlike the two kinds below, a bar neither shuts out the rest of its session nor forgets recent restarts:
// the restart that follows makes a new session anyway.
void VoiceController::act(const BarNavigation& navigation) {
    const QString echoKey = QStringLiteral("bar:") + QString::number(navigation.bar);
    if (echoGuard_.isRepeat(echoKey, platform_.mainQueue->now())) {
        logToFile(QStringLiteral("Suppressed echo: bar %1").arg(navigation.bar));
        return;
    }
    Q_EMIT willAct(navigation);
    beginExecution(echoKey);
    logToFile(QStringLiteral("Bar navigation: bar %1, thenPlay=%2")
                  .arg(navigation.bar)
                  .arg(logText(navigation.thenPlay)));
    executor_.execute(executionPlan(navigation));
}

void VoiceController::act(const BuiltInMatch& match) {
    const QString& echoKey = rawValue(match.command);
    pipeline_.setHandledCommand();
    if (echoGuard_.isRepeat(echoKey, platform_.mainQueue->now())) {
        logToFile(QStringLiteral("Suppressed echo: '%1' (same command within 4s)").arg(match.trigger));
        return;
    }
    Q_EMIT willAct(match);
    beginExecution(echoKey);
    pipeline_.forgetRecentRestarts();
    logToFile(QStringLiteral("Matched trigger: '%1' for command: %2").arg(match.trigger, echoKey));
    executor_.execute(executionPlan(match.command));
}

void VoiceController::act(const CustomMatch& match) {
    const QString& echoKey = match.command.name;
    pipeline_.setHandledCommand();
    if (echoGuard_.isRepeat(echoKey, platform_.mainQueue->now())) {
        logToFile(QStringLiteral("Suppressed echo (custom): '%1'").arg(match.trigger));
        return;
    }
    Q_EMIT willAct(match);
    beginExecution(echoKey);
    pipeline_.forgetRecentRestarts();
    logToFile(QStringLiteral("Matched custom trigger: '%1' for command: %2").arg(match.trigger, echoKey));
    executor_.execute(executionPlan(match.command));
}

void VoiceController::beginExecution(const QString& echoKey) {
    setIsAwake(false);
    if (wakeWordTimeout_) {
        wakeWordTimeout_->invalidate();
    }
    echoGuard_.remember(echoKey, platform_.mainQueue->now());
}

void VoiceController::executionShowsCommand(const QString& label) {
    setLastCommand(label);
}

void VoiceController::executionShowsStatus(const QString& status) {
    setStatusMessage(status);
}

void VoiceController::executionCountsAsActivity() {
    resetIdleTimer();
}

void VoiceController::executionSucceeded(VoiceCommand command) {
    CommandHistory history = commandHistory_;
    history.prepend({QUuid::createUuid(), command, platform_.mainQueue->wallTime(), true});
    if (history.size() > commandHistoryLimit) {
        history.resize(commandHistoryLimit);
    }
    setCommandHistory(history);
}

bool VoiceController::executionMayBeep() const {
    return audioFeedbackEnabled_;
}

bool VoiceController::pipelineIsWanted() const {
    return isListening_;
}

bool VoiceController::pipelineIsAwake() const {
    return isAwake_;
}

std::optional<QString> VoiceController::pipelineDeviceUID() const {
    return selectedAudioDevice_;
}

QString VoiceController::pipelineReadyStatus() const {
    return useWakeWord_ ? QStringLiteral("Say '%1' to activate").arg(wakeWord_)
                        : QStringLiteral("Listening...");
}

void VoiceController::pipelineShowsStatus(const QString& status) {
    setStatusMessage(status);
}

void VoiceController::pipelineBeginsSession() {
    setIsAwake(false);
}

void VoiceController::pipelineHeard(const QString& transcript) {
    handleRecognitionText(transcript);
}

void VoiceController::pipelineMeasured(float rootMeanSquare) {
    // One that was on its way when listening stopped would stand there for good.
    if (isListening_) {
        setAudioLevel(LevelMeter::nextLevel(audioLevel_, rootMeanSquare));
    }
}

} // namespace brivandel
