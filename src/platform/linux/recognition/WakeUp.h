#pragma once

#include <QtGlobal>

#include <semaphore.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <ctime>

namespace brivandel {

/// Wakes one waiting thread from any other. Waking takes no lock and does not allocate, so the audio thread
/// may do it.
///
/// pending_ is true from the first call of wake() until the waiter has seen it; the semaphore holds at most
/// one permission more than that, so it cannot run over however long nobody waits.
class WakeUp {
public:
    WakeUp() { sem_init(&semaphore_, 0, 0); }
    ~WakeUp() { sem_destroy(&semaphore_); }
    Q_DISABLE_COPY_MOVE(WakeUp)

    /// Any thread.
    void wake() {
        if (!pending_.exchange(true, std::memory_order_acq_rel)) {
            sem_post(&semaphore_);
        }
    }

    /// Returns once wake() has been called since the last return, or when the time is up. One thread.
    void wait(std::chrono::milliseconds atMost) {
        timespec until{};
        clock_gettime(CLOCK_MONOTONIC, &until);
        const auto nanoseconds = std::chrono::nanoseconds(atMost).count() + until.tv_nsec;
        until.tv_sec += nanoseconds / 1'000'000'000;
        until.tv_nsec = nanoseconds % 1'000'000'000;
        while (sem_clockwait(&semaphore_, CLOCK_MONOTONIC, &until) != 0 && errno == EINTR) {
        }
        // An exchange, not a store: it comes before or after that of wake(), so either what led to that is
        // seen from here on, or another permission is given.
        pending_.exchange(false, std::memory_order_acq_rel);
    }

private:
    sem_t semaphore_{};
    std::atomic<bool> pending_ = false;
};

} // namespace brivandel
