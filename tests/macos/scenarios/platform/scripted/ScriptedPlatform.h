#pragma once

#include "platform/Platform.h"
#include "platform/scripted/EventSink.h"
#include "platform/scripted/ScriptedAudio.h"
#include "platform/scripted/VirtualMainQueue.h"

#include <QVariantMap>

#include <memory>

// Stands before the header of the same name when the replay of scenarios is compiled for the macOS adapters:
// a platform that is played in the same way, and reports the same, but whose services are the adapters over
// doubles of the frameworks.
namespace brivandel {

class PlayedSessions;
class PlayedScripts;

struct PlayedDefaults {
    /// Puts an object there as if it had always been there; an invalid one takes it away.
    void preset(const QString& key, const QVariant& value);
};

struct PlayedPermissions {
    void answerSpeech(SpeechAuthorization answer);
    void answerMicrophone(bool granted);
};

struct PlayedDevices {
    void setDevices(const std::vector<ScriptedAudioDevices::Entry>& devices);
};

struct PlayedEngine {
    AudioEngine* adapter; ///< asked directly, nothing is reported

    void setInputFormat(const AudioFormat& format);
    void failStarts(int count, const QString& description);
    void setDeviceStatus(std::int32_t status);
    void feed(const std::vector<ScriptedChannel>& channels);
};

struct PlayedScriptHost {
    std::shared_ptr<PlayedScripts> scripts;
    void setOutcome(const std::optional<ScriptErrorDictionary>& error, VirtualMainQueue::Duration duration);
};

struct PlayedRecognition {
    std::shared_ptr<PlayedSessions> sessions;
    void setRecognizerAvailable(bool available);
    /// The system can always make one: a scenario that asks for this cannot be carried.
    void setRequestAvailable(bool available);
    void deliver(const std::optional<RecognitionResult>& result, const std::optional<QString>& error,
                 std::optional<std::size_t> taskNumber);
};

struct ScriptedPlatform {
    std::unique_ptr<Platform> platform;
    VirtualMainQueue& mainQueue;
    PlayedDefaults defaults;
    PlayedPermissions permissions;
    PlayedScriptHost scriptHost;
    PlayedDevices audioDevices;
    PlayedEngine audioEngine;
    PlayedRecognition speechRecognition;

    /// What the end of a program leaves: no tap, no task, nothing waiting. Settings stay.
    void endProgram();
};

[[nodiscard]] ScriptedPlatform makeScriptedPlatform(const EventSink& sink,
                                                    const QVariantMap& storedObjects = {});

} // namespace brivandel
