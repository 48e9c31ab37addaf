#pragma once

#include "platform/AudioEngine.h"

#include <QList>
#include <QString>

#include <optional>

namespace brivandel {

/// An input that the user can choose: uid is stable over unplugging and restarts, name is for people.
struct AudioDevice {
    QString uid;
    QString name;

    bool operator==(const AudioDevice&) const = default;
};

/// The inputs that are there now. Main thread; quick, since the list is kept up to date in the background.
class AudioDevices {
public:
    virtual ~AudioDevices() = default;
    [[nodiscard]] virtual QList<AudioDevice> inputDevices() = 0;
    /// None when no such device is plugged in.
    [[nodiscard]] virtual std::optional<AudioDeviceID> deviceIDForUID(const QString& uid) = 0;
};

} // namespace brivandel
