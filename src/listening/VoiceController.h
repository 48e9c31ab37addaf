#pragma once

#include "commands/CustomCommand.h"
#include "commands/TriggerOverrides.h"
#include "engine/CommandExecution.h"
#include "engine/CommandExecutor.h"
#include "engine/EchoGuard.h"
#include "engine/TranscriptMatcher.h"
#include "listening/IdleMonitor.h"
#include "listening/RecognitionPipeline.h"
#include "listening/Settings.h"
#include "platform/AudioDevices.h"
#include "platform/Lifeline.h"
#include "platform/MainQueue.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace brivandel {

struct Platform;

/// Voice control as one object: its state, its settings, and what happens when either changes. Views bind to
/// its properties; assigning isListening is the one switch that starts and stops it.
///
/// Setters act on every assignment, also of an equal value: they announce it (objectWillChange before, the
/// property's own signal after), store it where it is a setting, and do what follows from it. Main thread
/// only.
class VoiceController final : public QObject, private ExecutionObserver, private RecognitionPipelineObserver {
    Q_OBJECT
    Q_PROPERTY(bool isListening READ isListening WRITE setIsListening NOTIFY isListeningChanged)
    Q_PROPERTY(QString lastCommand READ lastCommand WRITE setLastCommand NOTIFY lastCommandChanged)
    Q_PROPERTY(
        QString lastTranscript READ lastTranscript WRITE setLastTranscript NOTIFY lastTranscriptChanged)
    Q_PROPERTY(QString statusMessage READ statusMessage WRITE setStatusMessage NOTIFY statusMessageChanged)
    Q_PROPERTY(bool isAwake READ isAwake WRITE setIsAwake NOTIFY isAwakeChanged)
    Q_PROPERTY(brivandel::CommandHistory commandHistory READ commandHistory WRITE setCommandHistory NOTIFY
                   commandHistoryChanged)
    Q_PROPERTY(float audioLevel READ audioLevel WRITE setAudioLevel NOTIFY audioLevelChanged)
    Q_PROPERTY(QString wakeWord READ wakeWord WRITE setWakeWord NOTIFY wakeWordChanged)
    Q_PROPERTY(bool useWakeWord READ useWakeWord WRITE setUseWakeWord NOTIFY useWakeWordChanged)
    Q_PROPERTY(bool audioFeedbackEnabled READ audioFeedbackEnabled WRITE setAudioFeedbackEnabled NOTIFY
                   audioFeedbackEnabledChanged)
    Q_PROPERTY(std::optional<QString> selectedAudioDevice READ selectedAudioDevice WRITE
                   setSelectedAudioDevice NOTIFY selectedAudioDeviceChanged)
    Q_PROPERTY(qlonglong idleTimeoutMinutes READ idleTimeoutMinutes WRITE setIdleTimeoutMinutes NOTIFY
                   idleTimeoutMinutesChanged)
    Q_PROPERTY(bool autoDisableOnIdle READ autoDisableOnIdle WRITE setAutoDisableOnIdle NOTIFY
                   autoDisableOnIdleChanged)
    Q_PROPERTY(bool idleReminderEnabled READ idleReminderEnabled WRITE setIdleReminderEnabled NOTIFY
                   idleReminderEnabledChanged)
    Q_PROPERTY(brivandel::CustomCommandList customCommands READ customCommands WRITE setCustomCommands NOTIFY
                   customCommandsChanged)
    Q_PROPERTY(brivandel::TriggerOverrides builtInTriggerOverrides READ builtInTriggerOverrides WRITE
                   setBuiltInTriggerOverrides NOTIFY builtInTriggerOverridesChanged)

public:
    /// The controller of this process, on the system's own platform: made on first use, owned by the
    /// application object.
    [[nodiscard]] static VoiceController& shared();
    /// What shared() stands on.
    [[nodiscard]] static Platform& sharedPlatform();

    using Preparation = std::function<void(VoiceController&)>;

    /// Loads every setting and asks for the permissions; does not start listening. The platform must outlive
    /// it. beforeLoading may connect to the object before the first assignment.
    explicit VoiceController(Platform& platform, const Preparation& beforeLoading = {});
    ~VoiceController() override;

    [[nodiscard]] bool isListening() const { return isListening_; }
    void setIsListening(bool listening);

    // What is shown. The engine itself assigns these; assigning one from outside shows it and does nothing
    // else.
    [[nodiscard]] const QString& lastCommand() const { return lastCommand_; }
    void setLastCommand(const QString& command);
    [[nodiscard]] const QString& lastTranscript() const { return lastTranscript_; }
    void setLastTranscript(const QString& transcript);
    [[nodiscard]] const QString& statusMessage() const { return statusMessage_; }
    void setStatusMessage(const QString& message);
    /// The wake phrase was heard and a command is awaited.
    [[nodiscard]] bool isAwake() const { return isAwake_; }
    void setIsAwake(bool awake);
    [[nodiscard]] const CommandHistory& commandHistory() const { return commandHistory_; }
    void setCommandHistory(const CommandHistory& history);
    /// From 0 to 1.
    [[nodiscard]] float audioLevel() const { return audioLevel_; }
    void setAudioLevel(float level);

    [[nodiscard]] const QString& wakeWord() const { return wakeWord_; }
    void setWakeWord(const QString& wakeWord);
    /// When false, everything heard is matched, without a wake phrase.
    [[nodiscard]] bool useWakeWord() const { return useWakeWord_; }
    void setUseWakeWord(bool use);
    [[nodiscard]] bool audioFeedbackEnabled() const { return audioFeedbackEnabled_; }
    void setAudioFeedbackEnabled(bool enabled);
    /// The UID of the chosen input; none for the system's default.
    [[nodiscard]] const std::optional<QString>& selectedAudioDevice() const { return selectedAudioDevice_; }
    void setSelectedAudioDevice(const std::optional<QString>& uid);
    [[nodiscard]] qlonglong idleTimeoutMinutes() const { return idleTimeoutMinutes_; }
    void setIdleTimeoutMinutes(qlonglong minutes);
    [[nodiscard]] bool autoDisableOnIdle() const { return autoDisableOnIdle_; }
    void setAutoDisableOnIdle(bool disable);
    [[nodiscard]] bool idleReminderEnabled() const { return idleReminderEnabled_; }
    void setIdleReminderEnabled(bool enabled);

    /// Assigning a collection does not store it; the save operations do.
    [[nodiscard]] const CustomCommandList& customCommands() const { return customCommands_; }
    void setCustomCommands(const CustomCommandList& commands);
    void saveCustomCommands();
    [[nodiscard]] const TriggerOverrides& builtInTriggerOverrides() const { return builtInTriggerOverrides_; }
    void setBuiltInTriggerOverrides(const TriggerOverrides& overrides);
    void saveTriggerOverrides();

    /// The inputs that there are now, for the settings.
    [[nodiscard]] QList<AudioDevice> getAvailableAudioDevices() const;

    /// Acts on a transcript of the running session, in lower case: the wake phrase first, then the command
    /// after it.
    void handleRecognitionText(const QString& transcript);

Q_SIGNALS:
    /// Before each assignment of a property below.
    void objectWillChange();
    /// After the assignment and before anything that follows from it.
    void isListeningChanged();
    void lastCommandChanged();
    void lastTranscriptChanged();
    void statusMessageChanged();
    void isAwakeChanged();
    void commandHistoryChanged();
    void audioLevelChanged();
    void wakeWordChanged();
    void useWakeWordChanged();
    void audioFeedbackEnabledChanged();
    void selectedAudioDeviceChanged();
    void idleTimeoutMinutesChanged();
    void autoDisableOnIdleChanged();
    void idleReminderEnabledChanged();
    void customCommandsChanged();
    void builtInTriggerOverridesChanged();

    /// Something said is about to be acted on; repeats that are suppressed are not announced.
    void willAct(const brivandel::Decision& decision);

private:
    template <typename Value>
    void assign(Value& property, Value value, void (VoiceController::*changed)());
    void loadSettings();
    void requestPermissions();
    void logToFile(const QString& message) const;
    void startListening();
    void stopListening();
    void restartRecognition();
    void resetIdleTimer();
    void vocabularyMayHaveChanged();

    void matchAndExecute(QStringView text);
    void act(const TriggerWordOn& match);
    void act(const TriggerWordOff& match);
    void act(const BarNavigation& navigation);
    void act(const BuiltInMatch& match);
    void act(const CustomMatch& match);
    void switchTriggerWord(bool on);
    void beginExecution(const QString& echoKey);

    void executionShowsCommand(const QString& label) override;
    void executionShowsStatus(const QString& status) override;
    void executionCountsAsActivity() override;
    void executionSucceeded(VoiceCommand command) override;
    [[nodiscard]] bool executionMayBeep() const override;

    [[nodiscard]] bool pipelineIsWanted() const override;
    [[nodiscard]] bool pipelineIsAwake() const override;
    [[nodiscard]] std::optional<QString> pipelineDeviceUID() const override;
    [[nodiscard]] QString pipelineReadyStatus() const override;
    void pipelineShowsStatus(const QString& status) override;
    void pipelineBeginsSession() override;
    void pipelineHeard(const QString& transcript) override;
    void pipelineMeasured(float rootMeanSquare) override;

    Platform& platform_;

    bool isListening_ = false;
    QString lastCommand_;
    QString lastTranscript_;
    QString statusMessage_ = QStringLiteral("Ready");
    bool isAwake_ = false;
    CommandHistory commandHistory_;
    float audioLevel_ = 0;
    QString wakeWord_;
    bool useWakeWord_ = false;
    bool audioFeedbackEnabled_ = false;
    std::optional<QString> selectedAudioDevice_;
    qlonglong idleTimeoutMinutes_ = 0;
    bool autoDisableOnIdle_ = false;
    bool idleReminderEnabled_ = false;
    CustomCommandList customCommands_;
    TriggerOverrides builtInTriggerOverrides_;

    Settings settings_;
    TranscriptMatcher matcher_;
    EchoGuard echoGuard_;
    CommandExecutor executor_;
    RecognitionPipeline pipeline_;
    IdleMonitor idleMonitor_;
    std::unique_ptr<Timer> wakeWordTimeout_; // nothing starts it: being awake has no time limit of its own
    bool vocabularyUpdatePending_ = false;
    Lifeline lifeline_;
};

} // namespace brivandel

Q_DECLARE_METATYPE(std::optional<QString>)
