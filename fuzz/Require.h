#pragma once

#include <cstdio>
#include <cstdlib>

namespace brivandel {

/// Ends the fuzzer, which then keeps its input, when what must hold does not.
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

} // namespace brivandel
