#pragma once

#include "platform/AudioEngine.h"

#include <QString>

#include <pulse/channelmap.h>

#include <optional>
#include <vector>

namespace brivandel {

/// A source of the sound server: a microphone, an input of an interface, or the monitor of an output.
struct AudioSource {
    /// The server's stable name, the same after unplugging and after a restart of machine or server.
    QString uid;
    /// For people.
    QString description;
    /// Stands for the uid as long as the program runs, plugged in or not; never 0.
    AudioDeviceID deviceID = 0;
    double sampleRateHz = 0;
    pa_channel_map channelMap{};
    /// Hears what an output plays: no microphone.
    bool isMonitor = false;

    [[nodiscard]] AudioFormat format() const;
    bool operator==(const AudioSource& other) const;
};

/// What the sound server offers at one moment.
struct AudioServer {
    bool isConnected = false;
    /// As the server names itself, with its version; empty when there is none.
    QString name;
    /// Why there is no connection.
    QString problem;
    /// In the server's order.
    std::vector<AudioSource> sources;
    /// Empty when the server has none.
    QString defaultSourceUid;

    [[nodiscard]] const AudioSource* sourceWithUid(const QString& uid) const;
    /// The default source, unless that is a monitor: a server without a microphone offers one as its default.
    [[nodiscard]] const AudioSource* defaultMicrophone() const;
    [[nodiscard]] bool hasMicrophone() const;

    bool operator==(const AudioServer&) const = default;
};

} // namespace brivandel
