#pragma once

#include "platform/AudioDevices.h"
#include "platform/AudioEngine.h"
#include "platform/Beeper.h"
#include "platform/DefaultsStore.h"
#include "platform/DiagnosticLog.h"
#include "platform/KeyboardLayout.h"
#include "platform/Notifier.h"
#include "platform/Permissions.h"
#include "platform/ScriptHost.h"
#include "platform/SpeechRecognition.h"
#include "platform/Targets.h"

#include <QString>

#include <memory>

// The services of macOS, each over the framework that its file names. What a service promises stands at its
// interface; here stands what is peculiar to this system. Nothing of Objective-C is to be seen from here.
namespace brivandel {

class CaptureEnd;
class MainQueue;

/// AVFAudio: an engine follows the system's default input until a device is set. When capture ends by itself,
/// captureEnd is told, and again whenever sound devices come or go, outputs and displays too, while the
/// engine is started but does not run.
[[nodiscard]] std::unique_ptr<AudioEngine> makeMacAudioEngine(MainQueue& mainQueue,
                                                              std::shared_ptr<CaptureEnd> captureEnd);

/// AVFoundation lists the inputs, CoreAudio knows them by UID.
[[nodiscard]] std::unique_ptr<AudioDevices> makeMacAudioDevices();

/// AppKit's alert sound, as the user has chosen it.
[[nodiscard]] std::unique_ptr<Beeper> makeMacBeeper();

/// The user's defaults under the bundle's identifier. The log must outlive it.
[[nodiscard]] std::unique_ptr<DefaultsStore> makeMacDefaultsStore(DiagnosticLog& log);

/// Carbon's text input sources. Key codes need no translation here.
[[nodiscard]] std::unique_ptr<KeyboardLayout> makeMacKeyboardLayout();

/// UserNotifications, which serve only a program in a bundle: for any other nothing is shown.
[[nodiscard]] std::unique_ptr<Notifier> makeMacNotifier();

/// Speech, AVFoundation and UserNotifications. The first request of each kind makes the system ask the user.
[[nodiscard]] std::unique_ptr<Permissions> makeMacPermissions();

/// NSAppleScript. Scripts of all hosts of the process run one after another.
[[nodiscard]] std::unique_ptr<ScriptHost> makeMacScriptHost();

/// Scripts name the workstation themselves, so it is always the same.
[[nodiscard]] std::unique_ptr<const TargetInquiry> makeMacTargetInquiry();

/// Speech. The vocabulary is not asked for: the system's own is large. What captureEnd is told is the error
/// of the newest session; that one comes on the main thread.
[[nodiscard]] std::unique_ptr<SpeechRecognition>
makeMacSpeechRecognition(std::shared_ptr<CaptureEnd> captureEnd);

} // namespace brivandel
