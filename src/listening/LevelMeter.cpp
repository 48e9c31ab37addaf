#include "listening/LevelMeter.h"

#include <algorithm>
#include <cmath>

namespace brivandel {

float LevelMeter::rootMeanSquare(std::span<const float> samples) {
    float sum = 0;
    for (const float sample : samples) {
        sum += sample * sample;
    }
    return std::sqrt(sum / static_cast<float>(samples.size()));
}

float LevelMeter::nextLevel(float previousLevel, float rootMeanSquare) {
    constexpr float gain = 6.0F;
    constexpr float fallOff = 0.82F;
    return std::min(1.0F, std::max(rootMeanSquare * gain, previousLevel * fallOff));
}

} // namespace brivandel
