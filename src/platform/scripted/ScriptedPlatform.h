#pragma once

#include "platform/Platform.h"
#include "platform/scripted/EventSink.h"
#include "platform/scripted/MemoryDefaultsStore.h"
#include "platform/scripted/ScriptedAudio.h"
#include "platform/scripted/ScriptedServices.h"
#include "platform/scripted/ScriptedSpeechRecognition.h"
#include "platform/scripted/VirtualMainQueue.h"

#include <QVariantMap>

#include <memory>

namespace brivandel {

/// A whole platform in virtual time, played from outside. Its services are reached as interfaces through
/// platform, and as what they are through the references, for whoever plays them. One thread.
struct ScriptedPlatform {
    std::unique_ptr<Platform> platform;
    VirtualMainQueue& mainQueue;
    MemoryDefaultsStore& defaults;
    ScriptedPermissions& permissions;
    ScriptedScriptHost& scriptHost;
    ScriptedAudioDevices& audioDevices;
    ScriptedAudioEngine& audioEngine;
    ScriptedSpeechRecognition& speechRecognition;
    ScriptedPronunciationGuide& pronunciations;

    /// What the end of a program leaves: no tap, no task, nothing waiting. Settings stay.
    void endProgram();
};

/// Every call of a service is reported to the sink, writes to the store as "store" events. The store starts
/// with these objects.
[[nodiscard]] ScriptedPlatform makeScriptedPlatform(const EventSink& sink,
                                                    const QVariantMap& storedObjects = {});

} // namespace brivandel
