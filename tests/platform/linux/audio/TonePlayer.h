#pragma once

#include "platform/linux/audio/PulseAudioLoop.h"

#include <QString>

#include <pulse/channelmap.h>
#include <pulse/context.h>
#include <pulse/stream.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace brivandel {

/// Plays an endless tone of its own frequency on each channel of a sink, at half of full scale, over its own
/// connection.
class TonePlayer {
public:
    static constexpr double amplitude = 0.5;

    /// Returns once the server plays it, or fails the test.
    TonePlayer(const QString& sink, const pa_channel_map& map, std::uint32_t sampleRateHz,
               std::vector<double> frequenciesHz);
    ~TonePlayer();
    TonePlayer(const TonePlayer&) = delete;
    TonePlayer& operator=(const TonePlayer&) = delete;

private:
    void write(std::size_t byteCount);

    std::vector<double> frequenciesHz_;
    std::uint32_t sampleRateHz_;
    std::uint64_t framesWritten_ = 0;
    PulseAudioLoop loop_;
    pa_context* context_ = nullptr;
    pa_stream* stream_ = nullptr;
};

/// One channel.
[[nodiscard]] pa_channel_map monoMap();
/// As the sink feed6 has them.
[[nodiscard]] pa_channel_map surroundMap();

} // namespace brivandel
