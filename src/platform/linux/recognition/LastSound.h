#pragma once

#include <cstdint>
#include <span>

namespace brivandel {

/// The sound to the end of the last of its words, which were said before a silence. What follows them is quieter
/// by far, or no louder than what was before them.
[[nodiscard]] std::span<const std::int16_t> withoutSilenceAfter(std::span<const std::int16_t> sound);

} // namespace brivandel
