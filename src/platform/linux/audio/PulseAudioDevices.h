#pragma once

#include "platform/AudioDevices.h"
#include "platform/linux/audio/PulseAudioContext.h"

namespace brivandel {

/// The sources of the sound server that are no monitors of an output.
class PulseAudioDevices final : public AudioDevices {
public:
    explicit PulseAudioDevices(PulseAudioContext& context) : context_(context) {}

    [[nodiscard]] QList<AudioDevice> inputDevices() override;
    [[nodiscard]] std::optional<AudioDeviceID> deviceIDForUID(const QString& uid) override;

private:
    PulseAudioContext& context_;
};

} // namespace brivandel
