#pragma once

#include "platform/AudioDevices.h"
#include "platform/AudioEngine.h"

namespace brivandel {

/// An engine whose input is handed to it block by block, on the caller's thread; what comes while it is
/// stopped is lost, as it is with a microphone.
class FileAudioEngine final : public AudioEngine {
public:
    explicit FileAudioEngine(const AudioFormat& format);

    [[nodiscard]] AudioFormat inputFormat() override { return format_; }
    void installTap(std::uint32_t bufferSizeFrames, const AudioFormat& format, TapBlock block) override;
    void removeTap() override { tap_ = {}; }
    void prepare() override {}
    [[nodiscard]] std::optional<QString> start() override;
    void stop() override { isRunning_ = false; }
    void followDefaultInput() override {}
    [[nodiscard]] std::int32_t setInputDevice(AudioDeviceID /*device*/) override { return 0; }

    void feed(const AudioBuffer& buffer) const;

private:
    AudioFormat format_;
    TapBlock tap_;
    bool isRunning_ = false;
};

/// No inputs to choose from.
class NoAudioDevices final : public AudioDevices {
public:
    [[nodiscard]] QList<AudioDevice> inputDevices() override { return {}; }
    [[nodiscard]] std::optional<AudioDeviceID> deviceIDForUID(const QString& /*uid*/) override {
        return std::nullopt;
    }
};

} // namespace brivandel
