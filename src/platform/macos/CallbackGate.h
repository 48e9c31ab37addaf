#pragma once

#include <mutex>

namespace brivandel {

/// Whether callbacks of the system may still come in. The owner closes it when it goes; each callback holds
/// it, shared, and reaches what the owner was given only through it. Any thread.
class CallbackGate {
public:
    /// Calls what is given, unless the gate is closed.
    template <typename Callback>
    void pass(const Callback& callback) {
        const std::lock_guard lock(mutex_);
        if (isOpen_) {
            callback();
        }
    }

    /// When it returns, no callback of another thread is inside and none will be.
    void close() {
        const std::lock_guard lock(mutex_);
        isOpen_ = false;
    }

private:
    // Recursive, for a callback may close the gate that it came through.
    std::recursive_mutex mutex_;
    bool isOpen_ = true;
};

} // namespace brivandel
