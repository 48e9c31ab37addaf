#pragma once

#include "platform/MainQueue.h"

#include <map>
#include <memory>
#include <utility>

namespace brivandel {

/// A main queue whose time stands still until it is advanced, so that 45 seconds of waiting take none. One
/// thread.
class VirtualMainQueue final : public MainQueue {
public:
    using Duration = std::chrono::microseconds;

    void post(Task task) override;
    void postAfter(std::chrono::milliseconds delay, Task task) override;
    [[nodiscard]] std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay, Task task) override;
    [[nodiscard]] TimePoint now() const override { return TimePoint{} + elapsed_; }
    [[nodiscard]] WallTime wallTime() const override;

    /// Time since the start.
    [[nodiscard]] Duration elapsed() const { return elapsed_; }
    /// Runs what is due now, and what that posts.
    void runDue() { advance(Duration::zero()); }
    /// Lets time pass, running what falls due in order; of things due at one moment, the one that was asked
    /// for first.
    void advance(Duration duration);
    /// As when somebody sets the clock of the machine forward, or back: wallTime() jumps, now() does not.
    void setWallClockBy(std::chrono::seconds difference) { wallClockDifference_ += difference; }
    /// Forgets everything that waits.
    void clear() { waiting_.clear(); }

    /// While set, posting is delayed by this much: for work that stands for something that takes time
    /// elsewhere.
    void setPostingDelay(Duration delay) { postingDelay_ = delay; }

private:
    class VirtualTimer;
    // Due time, then the order of asking.
    using Key = std::pair<Duration, unsigned long>;

    Key schedule(Duration delay, Task task);

    std::map<Key, Task> waiting_;
    Duration elapsed_{};
    Duration wallClockDifference_{};
    Duration postingDelay_{};
    unsigned long sequence_ = 0;
};

} // namespace brivandel
