#pragma once

#include "platform/WorkQueue.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace brivandel {

/// Threads of its own, each made when all others are busy and kept for the next piece of work: a musician's
/// scripts come one by one, so there are rarely more than two. When it is destroyed, work that runs is waited
/// for and work that waits is dropped.
class ThreadWorkQueue final : public WorkQueue {
public:
    /// More pieces than this at once wait for each other; a system's own work queue has the same bound.
    static constexpr std::size_t maximumThreadCount = 64;

    ThreadWorkQueue() = default;
    ~ThreadWorkQueue() override;

    void run(std::function<void()> work) override;

private:
    void serve();

    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<std::function<void()>> waiting_;
    std::size_t idleThreadCount_ = 0;
    bool isEnding_ = false;
    std::vector<std::thread> threads_;
};

} // namespace brivandel
