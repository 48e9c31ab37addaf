#pragma once

#include "platform/AudioFormat.h"

#include <cmath>
#include <cstddef>

namespace brivandel {

/// A buffer heard with one ear: the mean of both channels of a stereo buffer, so that the same sound on both
/// is as loud as on one; the first channel of any other. Valid as long as the buffer is. Any thread,
/// allocates nothing.
class MonoView {
public:
    explicit MonoView(const AudioBuffer& buffer) {
        const float* const left = buffer.channels.empty() ? nullptr : buffer.channels[0];
        const float* const right = buffer.channels.size() == 2 ? buffer.channels[1] : nullptr;
        first_ = left != nullptr ? left : right;
        second_ = left != nullptr && right != nullptr ? right : first_;
        frameCount_ = first_ != nullptr ? buffer.frameLength : 0;
    }

    /// 0 when the data of every channel is missing.
    [[nodiscard]] std::size_t frameCount() const { return frameCount_; }

    /// Always a number that filters and decoders can bear.
    [[nodiscard]] float operator[](std::size_t frame) const {
        const float mean = 0.5F * first_[frame] + 0.5F * second_[frame];
        // A device that has just been plugged in may deliver NaN, which a filter would never forget. A NaN
        // fails this.
        return std::fabs(mean) <= largest ? mean : 0.0F;
    }

private:
    static constexpr float largest = 16;

    const float* first_ = nullptr;
    const float* second_ = nullptr;
    std::size_t frameCount_ = 0;
};

} // namespace brivandel
