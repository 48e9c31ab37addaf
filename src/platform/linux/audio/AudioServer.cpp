#include "platform/linux/audio/AudioServer.h"

#include <algorithm>

namespace brivandel {

AudioFormat AudioSource::format() const {
    return {.sampleRateHz = sampleRateHz, .channelCount = channelMap.channels};
}

bool AudioSource::operator==(const AudioSource& other) const {
    return uid == other.uid && description == other.description && sampleRateHz == other.sampleRateHz &&
           isMonitor == other.isMonitor && pa_channel_map_equal(&channelMap, &other.channelMap) != 0;
}

const AudioSource* AudioServer::sourceWithUid(const QString& uid) const {
    const auto found = std::ranges::find(sources, uid, &AudioSource::uid);
    return found == sources.end() ? nullptr : &*found;
}

const AudioSource* AudioServer::defaultMicrophone() const {
    const AudioSource* source = sourceWithUid(defaultSourceUid);
    return source != nullptr && !source->isMonitor ? source : nullptr;
}

bool AudioServer::hasMicrophone() const {
    return !std::ranges::all_of(sources, &AudioSource::isMonitor);
}

} // namespace brivandel
