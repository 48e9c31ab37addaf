#pragma once

#include "platform/linux/audio/PulseAudioLoop.h"

#include <pulse/mainloop-api.h>

#include <chrono>
#include <functional>

namespace brivandel {

/// Runs a callback on the loop's thread once a delay has passed. All of it, destruction too, under the loop's
/// lock.
class LoopTimer {
public:
    LoopTimer(PulseAudioLoop& loop, std::function<void()> fire);
    ~LoopTimer();
    LoopTimer(const LoopTimer&) = delete;
    LoopTimer& operator=(const LoopTimer&) = delete;

    /// Forgets an earlier start.
    void start(std::chrono::milliseconds delay);
    void cancel();
    [[nodiscard]] bool isRunning() const { return event_ != nullptr; }

private:
    PulseAudioLoop& loop_;
    std::function<void()> fire_;
    pa_time_event* event_ = nullptr;
};

} // namespace brivandel
