#include "platform/scripted/ScriptedPlatform.h"

#include "platform/scripted/Placement.h"
#include "platform/scripted/StoredValueJson.h"

#include <utility>

namespace brivandel {

void ScriptedPlatform::endProgram() {
    audioEngine.reset();
    speechRecognition.reset();
    mainQueue.clear();
}

ScriptedPlatform makeScriptedPlatform(const EventSink& sink, const QVariantMap& storedObjects) {
    auto platform = std::make_unique<Platform>();
    auto& mainQueue = place<VirtualMainQueue>(platform->mainQueue);
    place<ScriptedLog>(platform->log, sink);
    place<ScriptedKeyboardLayout>(platform->keyboardLayout);
    auto& permissions = place<ScriptedPermissions>(platform->permissions, sink);
    place<ScriptedNotifier>(platform->notifier, sink);
    place<ScriptedBeeper>(platform->beeper, sink);
    auto& scriptHost = place<ScriptedScriptHost>(platform->scriptHost, sink, mainQueue);
    place<ScriptedTargetInquiry>(platform->target);
    place<ScriptedWorkQueue>(platform->workQueue, mainQueue);
    auto& defaults = place<MemoryDefaultsStore>(
        platform->defaults, storedObjects, [sink](const QString& key, const QVariant& value) {
            sink("store", {{"key", key.toStdString()}, {"value", storedValueJson(value)}});
        });
    auto& audioDevices = place<ScriptedAudioDevices>(platform->audioDevices);
    auto& audioEngine = place<ScriptedAudioEngine>(platform->audioEngine, sink);
    auto& speechRecognition = place<ScriptedSpeechRecognition>(platform->speechRecognition, sink);
    auto pronunciations = std::make_shared<ScriptedPronunciationGuide>();
    auto& knownPronunciations = *pronunciations;
    platform->pronunciations = std::move(pronunciations);
    return {
        std::move(platform), mainQueue,   defaults,          permissions,         scriptHost,
        audioDevices,        audioEngine, speechRecognition, knownPronunciations,
    };
}

} // namespace brivandel
