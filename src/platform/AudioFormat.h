#pragma once

#include <cstdint>
#include <span>

namespace brivandel {

/// The four-character code 'lpcm', linear PCM, which every capture format of this program has.
inline constexpr std::uint32_t linearPcmFormatID = 0x6c70636d;

/// What an input delivers.
struct AudioFormat {
    double sampleRateHz = 48000;
    std::uint32_t channelCount = 1;
    std::uint32_t formatID = linearPcmFormatID;
    std::uint32_t bitsPerChannel = 32;

    bool operator==(const AudioFormat&) const = default;
};

/// One block of captured sound: 32-bit float samples between -1 and 1, one array a channel.
/// It owns nothing: samples and array are valid only during the call that it is passed to.
struct AudioBuffer {
    double sampleRateHz = 0;
    std::uint32_t frameLength = 0;
    /// One pointer a channel; null where the data of that channel is missing.
    std::span<const float* const> channels;
};

} // namespace brivandel
