#pragma once

#include "platform/AudioEngine.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <vector>

namespace brivandel {

/// A tap that keeps what it is given, for the test to wait for.
class BlockCollector {
public:
    using Channels = std::vector<std::vector<float>>;

    struct Block {
        double sampleRateHz;
        Channels channels;
    };

    [[nodiscard]] AudioEngine::TapBlock tap();

    /// The blocks from now on until so many have come; fewer when they do not come in time.
    std::vector<Block> next(std::size_t count, std::chrono::milliseconds patience);
    [[nodiscard]] std::size_t count();
    void clear();

private:
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::vector<Block> blocks_;
};

/// Joins one channel of the blocks into one piece.
[[nodiscard]] std::vector<float> channelOf(const std::vector<BlockCollector::Block>& blocks,
                                           std::size_t channel);

/// The amplitude of the tone of that frequency in the samples.
[[nodiscard]] double toneAmplitude(const std::vector<float>& samples, double frequencyHz,
                                   double sampleRateHz);

} // namespace brivandel
