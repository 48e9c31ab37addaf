#include "platform/scripted/ScriptedPlatform.h"

#include <utility>

namespace brivandel {

namespace {

nlohmann::ordered_json storedValue(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString().toStdString();
    case QMetaType::QByteArray:
        return QString::fromUtf8(value.toByteArray()).toStdString();
    default:
        return nullptr;
    }
}

// Keeps a reference to what it gives away.
template <typename Service, typename Slot, typename... Arguments>
Service& place(std::unique_ptr<Slot>& slot, Arguments&&... arguments) {
    auto service = std::make_unique<Service>(std::forward<Arguments>(arguments)...);
    Service& reference = *service;
    slot = std::move(service);
    return reference;
}

} // namespace

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
    place<ScriptedWorkQueue>(platform->workQueue, mainQueue);
    auto& defaults = place<MemoryDefaultsStore>(
        platform->defaults, storedObjects, [sink](const QString& key, const QVariant& value) {
            sink("store", {{"key", key.toStdString()}, {"value", storedValue(value)}});
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
