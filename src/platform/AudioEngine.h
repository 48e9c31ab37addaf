#pragma once

#include "platform/AudioFormat.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace brivandel {

using AudioDeviceID = std::uint32_t;

/// Captures sound from one input device and hands it to one tap. Main thread, except the tap's block.
class AudioEngine {
public:
    /// Called on the audio thread: must not block, lock or allocate more than one main-thread dispatch a
    /// call.
    using TapBlock = std::function<void(const AudioBuffer&)>;

    virtual ~AudioEngine() = default;

    /// The format of the input in force: the device that was set, else the system's default input.
    [[nodiscard]] virtual AudioFormat inputFormat() = 0;
    /// Installs the only tap. Blocks hold bufferSizeFrames frames where the platform can arrange it.
    virtual void installTap(std::uint32_t bufferSizeFrames, const AudioFormat& format, TapBlock block) = 0;
    /// When it returns, the block neither runs nor will run again. No tap is no error.
    virtual void removeTap() = 0;

    virtual void prepare() = 0;
    /// Starts capture and returns at once; the description of what failed, if anything. A running engine, and
    /// one without a tap, start without an error.
    [[nodiscard]] virtual std::optional<QString> start() = 0;
    virtual void stop() = 0;

    /// Follows the system's default input from now on, which a new engine does too.
    virtual void followDefaultInput() = 0;
    /// Chooses the input device; 0 for success, else the platform's status.
    [[nodiscard]] virtual std::int32_t setInputDevice(AudioDeviceID device) = 0;
};

} // namespace brivandel
