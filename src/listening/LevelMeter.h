#pragma once

#include <cstddef>
#include <span>

/// The arithmetic of the input meter, a peak-hold meter with exponential fall-off. In 32-bit floats
/// throughout.
namespace brivandel::LevelMeter {

/// The root mean square of one block's samples, which must not be empty. Allocates nothing: it runs on the
/// audio thread.
[[nodiscard]] float rootMeanSquare(std::span<const float> samples);

/// The level after a block, from 0 to 1. Speech at an ordinary level fills a useful part of it; it falls by
/// 18 % a block of 1024 frames.
[[nodiscard]] float nextLevel(float previousLevel, float rootMeanSquare);

} // namespace brivandel::LevelMeter
