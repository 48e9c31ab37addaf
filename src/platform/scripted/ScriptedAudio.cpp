#include "platform/scripted/ScriptedAudio.h"

#include <algorithm>
#include <utility>

namespace brivandel {

ScriptedAudioEngine::ScriptedAudioEngine(const EventSink& sink) : sink_(sink) {}

void ScriptedAudioEngine::report(const char* action, nlohmann::ordered_json members) {
    nlohmann::ordered_json event = {{"action", action}};
    event.update(members);
    sink_("engine", std::move(event));
}

void ScriptedAudioEngine::installTap(std::uint32_t bufferSizeFrames, const AudioFormat& /*format*/,
                                     TapBlock block) {
    tap_ = std::move(block);
    report("installTap", {{"bufferSize", bufferSizeFrames}});
}

void ScriptedAudioEngine::removeTap() {
    tap_ = {};
    report("removeTap");
}

void ScriptedAudioEngine::prepare() {
    report("prepare");
}

std::optional<QString> ScriptedAudioEngine::start() {
    if (failingStarts_ > 0) {
        --failingStarts_;
        report("startFailed");
        return failure_;
    }
    report("start");
    return std::nullopt;
}

void ScriptedAudioEngine::stop() {
    report("stop");
}

std::int32_t ScriptedAudioEngine::setInputDevice(AudioDeviceID device) {
    report("setDevice", {{"id", device}});
    return deviceStatus_;
}

void ScriptedAudioEngine::failStarts(int count, const QString& description) {
    failingStarts_ = count;
    failure_ = description;
}

void ScriptedAudioEngine::feed(const std::vector<ScriptedChannel>& channels) {
    if (!tap_) {
        return;
    }
    std::vector<const float*> pointers;
    std::size_t frameCount = 0;
    for (const ScriptedChannel& channel : channels) {
        pointers.push_back(channel ? channel->data() : nullptr);
        frameCount = std::max(frameCount, channel ? channel->size() : 0);
    }
    tap_({format_.sampleRateHz, static_cast<std::uint32_t>(frameCount), pointers});
}

QList<AudioDevice> ScriptedAudioDevices::inputDevices() {
    QList<AudioDevice> list;
    for (const Entry& entry : devices_) {
        list += entry.device;
    }
    return list;
}

std::optional<AudioDeviceID> ScriptedAudioDevices::deviceIDForUID(const QString& uid) {
    const auto found = std::ranges::find(devices_, uid, [](const Entry& entry) { return entry.device.uid; });
    if (found == devices_.end()) {
        return std::nullopt;
    }
    return found->id;
}

} // namespace brivandel
