#include "platform/linux/audio/PulseAudioDevices.h"

namespace brivandel {

QList<AudioDevice> PulseAudioDevices::inputDevices() {
    QList<AudioDevice> devices;
    const AudioServer server = context_.server();
    for (const AudioSource& source : server.sources) {
        if (!source.isMonitor) {
            devices.append({.uid = source.uid, .name = source.description});
        }
    }
    return devices;
}

std::optional<AudioDeviceID> PulseAudioDevices::deviceIDForUID(const QString& uid) {
    const AudioServer server = context_.server();
    const AudioSource* source = server.sourceWithUid(uid);
    return source != nullptr && !source->isMonitor ? std::optional(source->deviceID) : std::nullopt;
}

} // namespace brivandel
