#include "platform/linux/audio/LoopTimer.h"

#include <pulse/timeval.h>

#include <utility>

namespace brivandel {

LoopTimer::LoopTimer(PulseAudioLoop& loop, std::function<void()> fire)
    : loop_(loop)
    , fire_(std::move(fire)) {}

LoopTimer::~LoopTimer() {
    cancel();
}

void LoopTimer::start(std::chrono::milliseconds delay) {
    cancel();
    const auto fired = [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
        auto& timer = *static_cast<LoopTimer*>(self);
        timer.cancel();
        timer.fire_();
    };
    // The loop turns the time of day into its monotonic clock right here, so a clock that is set later
    // changes nothing.
    timeval due{};
    pa_gettimeofday(&due);
    pa_timeval_add(&due, static_cast<pa_usec_t>(std::chrono::microseconds(delay).count()));
    event_ = loop_.api().time_new(&loop_.api(), &due, fired, this);
}

void LoopTimer::cancel() {
    if (event_ != nullptr) {
        loop_.api().time_free(std::exchange(event_, nullptr));
    }
}

} // namespace brivandel
