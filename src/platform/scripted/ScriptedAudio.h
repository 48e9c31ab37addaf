#pragma once

#include "platform/AudioDevices.h"
#include "platform/AudioEngine.h"
#include "platform/scripted/EventSink.h"

#include <QString>

#include <optional>
#include <vector>

namespace brivandel {

/// One channel's samples; none where a buffer lacks that channel's data.
using ScriptedChannel = std::optional<std::vector<float>>;

/// An engine whose input is what a scenario feeds it. One thread.
class ScriptedAudioEngine final : public AudioEngine {
public:
    explicit ScriptedAudioEngine(const EventSink& sink);

    [[nodiscard]] AudioFormat inputFormat() override { return format_; }
    void installTap(std::uint32_t bufferSizeFrames, const AudioFormat& format, TapBlock block) override;
    void removeTap() override;
    void prepare() override;
    [[nodiscard]] std::optional<QString> start() override;
    void stop() override;
    void followDefaultInput() override {}
    [[nodiscard]] std::int32_t setInputDevice(AudioDeviceID device) override;

    void setInputFormat(const AudioFormat& format) { format_ = format; }
    /// The next count starts fail with this description.
    void failStarts(int count, const QString& description);
    /// What choosing a device returns from now on.
    void setDeviceStatus(std::int32_t status) { deviceStatus_ = status; }
    /// Hands one block to the tap, if there is one. Channels that are there must be of one length.
    void feed(const std::vector<ScriptedChannel>& channels);
    /// Drops the tap without a report, as the end of a program does.
    void reset() { tap_ = {}; }

private:
    void report(const char* action, nlohmann::ordered_json members = nlohmann::ordered_json::object());

    EventSink sink_;
    AudioFormat format_;
    TapBlock tap_;
    int failingStarts_ = 0;
    QString failure_;
    std::int32_t deviceStatus_ = 0;
};

class ScriptedAudioDevices final : public AudioDevices {
public:
    struct Entry {
        AudioDevice device;
        AudioDeviceID id = 0;
    };

    [[nodiscard]] QList<AudioDevice> inputDevices() override;
    [[nodiscard]] std::optional<AudioDeviceID> deviceIDForUID(const QString& uid) override;

    void setDevices(std::vector<Entry> devices) { devices_ = std::move(devices); }

private:
    std::vector<Entry> devices_;
};

} // namespace brivandel
