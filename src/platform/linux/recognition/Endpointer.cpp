#include "platform/linux/recognition/Endpointer.h"

namespace brivandel {

Endpointer::Change Endpointer::push(std::span<const std::int16_t, samplesPerFrame> asHeard,
                                    std::span<const std::int16_t, samplesPerFrame> withoutNoise) {
    // Either floor follows its own sound, whatever the other says.
    const bool isLoud = floorAsHeard_.push(asHeard);
    const bool standsOut = floorWithoutNoise_.push(withoutNoise);
    if (isLoud || standsOut) {
        sound_ += frameLength;
        silence_ = std::chrono::milliseconds(0);
    } else {
        sound_ = std::chrono::milliseconds(0);
        silence_ += frameLength;
    }
    if (!inUtterance_ && sound_ >= onset) {
        inUtterance_ = true;
        return Change::Begin;
    }
    if (inUtterance_ && silence_ >= hangover) {
        inUtterance_ = false;
        return Change::End;
    }
    return Change::None;
}

} // namespace brivandel
