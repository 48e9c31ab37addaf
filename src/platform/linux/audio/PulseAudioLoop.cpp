#include "platform/linux/audio/PulseAudioLoop.h"

#include "platform/linux/audio/LoopTimer.h"

namespace brivandel {

PulseAudioLoop::Lock::Lock(const PulseAudioLoop& loop) : loop_(loop.loop_.get()) {
    pa_threaded_mainloop_lock(loop_);
}

PulseAudioLoop::Lock::~Lock() {
    pa_threaded_mainloop_unlock(loop_);
}

PulseAudioLoop::PulseAudioLoop() : loop_(pa_threaded_mainloop_new()) {
    pa_threaded_mainloop_set_name(loop_.get(), "audio");
    pa_threaded_mainloop_start(loop_.get());
}

PulseAudioLoop::~PulseAudioLoop() {
    pa_threaded_mainloop_stop(loop_.get());
}

pa_mainloop_api& PulseAudioLoop::api() const {
    return *pa_threaded_mainloop_get_api(loop_.get());
}

void PulseAudioLoop::waitUntil(const Lock& /*lock*/, std::chrono::milliseconds patience,
                               const std::function<bool()>& condition) {
    bool isOver = condition();
    if (isOver) {
        return;
    }
    LoopTimer deadline(*this, [&] {
        isOver = true;
        wake();
    });
    deadline.start(patience);
    while (!isOver) {
        pa_threaded_mainloop_wait(loop_.get());
        isOver = isOver || condition();
    }
}

void PulseAudioLoop::wake() {
    pa_threaded_mainloop_signal(loop_.get(), 0);
}

} // namespace brivandel
