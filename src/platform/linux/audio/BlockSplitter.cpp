#include "platform/linux/audio/BlockSplitter.h"

#include <algorithm>
#include <utility>

namespace brivandel {

BlockSplitter::BlockSplitter(double sampleRateHz, std::uint32_t channelCount, std::uint32_t blockFrames,
                             Deliver deliver)
    : sampleRateHz_(sampleRateHz)
    , channelCount_(channelCount)
    , blockFrames_(std::max(blockFrames, 1U))
    , deliver_(std::move(deliver))
    , samples_(std::size_t{channelCount_} * blockFrames_) {
    for (std::size_t channel = 0; channel < channelCount_; ++channel) {
        channels_.push_back(samples_.data() + channel * blockFrames_);
    }
}

template <typename Fill>
void BlockSplitter::fillBlocks(std::size_t frameCount, Fill fill) {
    for (std::size_t done = 0; done < frameCount;) {
        const auto frames = std::min<std::size_t>(frameCount - done, blockFrames_ - filledFrames_);
        for (std::size_t channel = 0; channel < channelCount_; ++channel) {
            fill(samples_.data() + channel * blockFrames_ + filledFrames_, channel, done, frames);
        }
        done += frames;
        filledFrames_ += static_cast<std::uint32_t>(frames);
        if (filledFrames_ == blockFrames_) {
            filledFrames_ = 0;
            deliver_({.sampleRateHz = sampleRateHz_, .frameLength = blockFrames_, .channels = channels_});
        }
    }
}

void BlockSplitter::push(const float* interleaved, std::size_t frameCount) {
    fillBlocks(frameCount,
               [&](float* target, std::size_t channel, std::size_t firstFrame, std::size_t frames) {
                   const float* source = interleaved + firstFrame * channelCount_ + channel;
                   for (std::size_t frame = 0; frame < frames; ++frame) {
                       target[frame] = source[frame * channelCount_];
                   }
               });
}

void BlockSplitter::pushSilence(std::size_t frameCount) {
    fillBlocks(frameCount, [](float* target, std::size_t, std::size_t, std::size_t frames) {
        std::fill_n(target, frames, 0.0F);
    });
}

void BlockSplitter::reset() {
    filledFrames_ = 0;
}

} // namespace brivandel
