#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace brivandel {

/// A one-shot timer of the main thread. Invalidating it, or destroying it, keeps it from firing. Main thread
/// only.
class Timer {
public:
    virtual ~Timer() = default;
    virtual void invalidate() = 0;
};

/// The main thread's queue, its timers, and time itself. Nothing else in the program reads a clock.
class MainQueue {
public:
    using Task = std::function<void()>;
    using Clock = std::chrono::steady_clock;
    using TimePoint = Clock::time_point;
    using WallTime = std::chrono::system_clock::time_point;

    virtual ~MainQueue() = default;

    /// Runs the task on the main thread in a later turn of its loop, in the order of posting. Any thread;
    /// takes no lock.
    virtual void post(Task task) = 0;
    /// Runs the task on the main thread once the delay has passed. Main thread.
    virtual void postAfter(std::chrono::milliseconds delay, Task task) = 0;
    /// Starts a timer that runs the task once on the main thread. Main thread.
    [[nodiscard]] virtual std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay, Task task) = 0;

    /// Monotonic, for intervals: a clock that is set never makes one longer or shorter. Any thread.
    [[nodiscard]] virtual TimePoint now() const = 0;
    /// The time of day, for stamps that a person reads. Any thread.
    [[nodiscard]] virtual WallTime wallTime() const = 0;
};

} // namespace brivandel
