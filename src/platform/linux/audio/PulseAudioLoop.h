#pragma once

#include <pulse/thread-mainloop.h>

#include <chrono>
#include <functional>
#include <memory>

namespace brivandel {

/// The thread on which libpulse does its work: connections, lists, and captured sound. It holds its lock
/// while a callback runs, so whoever holds the lock knows that none does. The lock passes its priority on,
/// and is held for microseconds.
class PulseAudioLoop {
public:
    /// Keeps every callback of the loop from running. Not from a callback, which runs under the lock already.
    class Lock {
    public:
        explicit Lock(const PulseAudioLoop& loop);
        ~Lock();
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        pa_threaded_mainloop* loop_;
    };

    PulseAudioLoop();
    ~PulseAudioLoop();
    PulseAudioLoop(const PulseAudioLoop&) = delete;
    PulseAudioLoop& operator=(const PulseAudioLoop&) = delete;

    [[nodiscard]] pa_mainloop_api& api() const;
    /// Lets callbacks run until the condition holds, or the patience is at an end. Asks again after each
    /// wake(). With the lock held; not on the loop's thread.
    void waitUntil(const Lock& lock, std::chrono::milliseconds patience,
                   const std::function<bool()>& condition);
    /// Has waitUntil() ask again. From a callback.
    void wake();

private:
    struct Free {
        void operator()(pa_threaded_mainloop* loop) const { pa_threaded_mainloop_free(loop); }
    };
    std::unique_ptr<pa_threaded_mainloop, Free> loop_;
};

} // namespace brivandel
