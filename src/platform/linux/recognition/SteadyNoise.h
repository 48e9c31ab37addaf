#pragma once

#include <cstdint>
#include <span>

namespace brivandel {

/// Whether words, with the pauses around them, are spoken in so much noise, and so steady, that they are
/// better understood without it. Where there is less, suppression takes more from the words than from the
/// noise; and of music it takes the long notes, and lets the others stand out.
[[nodiscard]] bool isInSteadyNoise(std::span<const std::int16_t> sound);

} // namespace brivandel
