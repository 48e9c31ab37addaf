#pragma once

#include <QString>

namespace brivandel {

/// The symbols of the caller's stack, innermost first, one line a frame; at most frameCount of them.
[[nodiscard]] QString callStackSymbols(int frameCount);

} // namespace brivandel
