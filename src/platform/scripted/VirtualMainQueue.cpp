#include "platform/scripted/VirtualMainQueue.h"

namespace brivandel {

namespace {

// The wall clock at the start of virtual time, 2026-01-01T00:00:00Z: any fixed moment does, since runs must
// be alike.
constexpr std::chrono::seconds wallTimeAtStart{1767225600};

} // namespace

class VirtualMainQueue::VirtualTimer final : public Timer {
public:
    VirtualTimer(VirtualMainQueue& queue, Key key) : queue_(queue), key_(std::move(key)) {}
    ~VirtualTimer() override { VirtualTimer::invalidate(); }
    VirtualTimer(const VirtualTimer&) = delete;
    VirtualTimer& operator=(const VirtualTimer&) = delete;

    void invalidate() override { queue_.waiting_.erase(key_); }

private:
    VirtualMainQueue& queue_;
    Key key_;
};

VirtualMainQueue::Key VirtualMainQueue::schedule(Duration delay, Task task) {
    const Key key{elapsed_ + std::max(delay, Duration::zero()), sequence_++};
    waiting_.emplace(key, std::move(task));
    return key;
}

void VirtualMainQueue::post(Task task) {
    schedule(postingDelay_, std::move(task));
}

void VirtualMainQueue::postAfter(std::chrono::milliseconds delay, Task task) {
    schedule(delay, std::move(task));
}

std::unique_ptr<Timer> VirtualMainQueue::startTimer(std::chrono::milliseconds delay, Task task) {
    return std::make_unique<VirtualTimer>(*this, schedule(delay, std::move(task)));
}

MainQueue::WallTime VirtualMainQueue::wallTime() const {
    return WallTime{wallTimeAtStart} + wallClockDifference_ + elapsed_;
}

void VirtualMainQueue::advance(Duration duration) {
    const Duration end = elapsed_ + duration;
    while (!waiting_.empty() && waiting_.begin()->first.first <= end) {
        // Out of the map before it runs: a task may start, invalidate or destroy timers, its own too.
        auto next = waiting_.extract(waiting_.begin());
        elapsed_ = std::max(elapsed_, next.key().first);
        next.mapped()();
    }
    elapsed_ = end;
}

} // namespace brivandel
