#pragma once

#include "platform/AudioFormat.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace brivandel {

/// Turns a stream of interleaved samples in pieces of any size into blocks of one size, one array a channel.
/// Memory is taken when it is made and never again.
class BlockSplitter {
public:
    using Deliver = std::function<void(const AudioBuffer&)>;

    BlockSplitter(double sampleRateHz, std::uint32_t channelCount, std::uint32_t blockFrames,
                  Deliver deliver);

    /// Delivers each block that these frames fill, before it returns; the rest waits for more.
    void push(const float* interleaved, std::size_t frameCount);
    /// As push(), for sound that was lost: what comes after it keeps its place in time.
    void pushSilence(std::size_t frameCount);
    /// Forgets the frames that wait.
    void reset();

private:
    template <typename Fill>
    void fillBlocks(std::size_t frameCount, Fill fill);

    double sampleRateHz_;
    std::uint32_t channelCount_;
    std::uint32_t blockFrames_;
    Deliver deliver_;
    std::uint32_t filledFrames_ = 0;
    /// channelCount_ arrays of blockFrames_, one after the other.
    std::vector<float> samples_;
    std::vector<const float*> channels_;
};

} // namespace brivandel
