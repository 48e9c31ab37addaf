#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace brivandel {

/// Turns samples between -1 and 1 into 16 bits, with noise of about one step: in digital silence the features
/// of the engine have no meaning, and words beside it are lost. The noise is the same in every stream, so
/// that the same sound always gives the same result.
class Dither {
public:
    [[nodiscard]] std::int16_t operator()(float sample) {
        const float noise = uniform() - uniform();
        const float scaled = std::clamp(sample, -1.0F, 1.0F) * 32766 + noise;
        return static_cast<std::int16_t>(std::lround(scaled));
    }

private:
    /// Between 0 and 1.
    float uniform() {
        // Marsaglia's xorshift: its low quality is good enough for noise.
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<float>(state_ >> 8) * (1.0F / 16777216);
    }

    std::uint32_t state_ = 0x9e3779b9;
};

} // namespace brivandel
