#pragma once

#include "platform/AudioEngine.h"

#include <atomic>
#include <utility>

namespace brivandel {

/// The way of sound from the audio thread to a tap's block, which the main thread can close. Takes no lock:
/// - isOpen_ is written by the main thread alone, in close();
/// - insideCount_ is written by the audio threads. A thread counts itself in before it asks whether the gate
///   is open, and close() shuts the gate before it asks whether anyone is inside; all four steps are
///   sequentially consistent, so that one of the two sees the other.
class TapGate {
public:
    explicit TapGate(AudioEngine::TapBlock block) : block_(std::move(block)) {}

    /// Audio thread.
    void pass(const AudioBuffer& buffer) {
        insideCount_.fetch_add(1);
        if (isOpen_.load()) {
            block_(buffer);
        }
        if (insideCount_.fetch_sub(1) == 1 && !isOpen_.load()) {
            insideCount_.notify_all();
        }
    }

    /// Main thread. When it returns, the block does not run and will not run again.
    void close() {
        isOpen_.store(false);
        for (int count = insideCount_.load(); count != 0; count = insideCount_.load()) {
            insideCount_.wait(count);
        }
    }

private:
    AudioEngine::TapBlock block_;
    std::atomic<bool> isOpen_ = true;
    std::atomic<int> insideCount_ = 0;
};

} // namespace brivandel
