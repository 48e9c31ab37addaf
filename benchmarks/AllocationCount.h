#pragma once

namespace brivandel {

/// How often memory was taken from the heap so far, by any thread. Linking this counts.
[[nodiscard]] long allocationCount();

} // namespace brivandel
