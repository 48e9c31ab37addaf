#pragma once

#include <pulse/operation.h>

namespace brivandel {

/// Lets a request to the server go on by itself: its callback tells when it is done. Null is one that could
/// not be made.
inline void leaveRunning(pa_operation* operation) {
    if (operation != nullptr) {
        pa_operation_unref(operation);
    }
}

} // namespace brivandel
