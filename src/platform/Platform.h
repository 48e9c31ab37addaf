#pragma once

#include "platform/AudioDevices.h"
#include "platform/AudioEngine.h"
#include "platform/Beeper.h"
#include "platform/DefaultsStore.h"
#include "platform/DiagnosticLog.h"
#include "platform/KeyboardLayout.h"
#include "platform/MainQueue.h"
#include "platform/Notifier.h"
#include "platform/Permissions.h"
#include "platform/PronunciationGuide.h"
#include "platform/ScriptHost.h"
#include "platform/SpeechRecognition.h"
#include "platform/Targets.h"
#include "platform/WorkQueue.h"

#include <memory>

namespace brivandel {

/// All that the program asks of a system. Members are destroyed in reverse order, so that work still running
/// on the queue finds what it uses. None of them is null: a service that a system lacks is an object that
/// says so.
struct Platform {
    std::shared_ptr<void> foundation; ///< what several services of one system stand on
    std::unique_ptr<MainQueue> mainQueue;
    std::unique_ptr<DiagnosticLog> log;
    std::unique_ptr<KeyboardLayout> keyboardLayout;
    std::unique_ptr<Permissions> permissions;
    std::unique_ptr<Notifier> notifier;
    std::unique_ptr<Beeper> beeper;
    std::unique_ptr<ScriptHost> scriptHost;
    std::unique_ptr<const TargetInquiry> target; ///< of the scripts that the host runs
    std::unique_ptr<WorkQueue> workQueue;
    std::unique_ptr<DefaultsStore> defaults;
    std::unique_ptr<AudioDevices> audioDevices;
    std::unique_ptr<AudioEngine> audioEngine;
    std::unique_ptr<SpeechRecognition> speechRecognition;
    /// Shared, since work on the queue may use it when nobody waits for that any more.
    std::shared_ptr<const PronunciationGuide> pronunciations;
};

/// What the user may tell a platform at start.
struct PlatformOptions {
    /// Which program stands for "Logic Pro" where that has another name; empty: the platform's own rule.
    QString target;
};

/// The platform of this system: defined once a system, and the build picks the definition. Main thread.
[[nodiscard]] std::unique_ptr<Platform> makePlatform(const PlatformOptions& options);

} // namespace brivandel
