#include "platform/qt/ThreadWorkQueue.h"

#include <utility>

namespace brivandel {

ThreadWorkQueue::~ThreadWorkQueue() {
    std::vector<std::thread> threads;
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
        threads.swap(threads_);
    }
    arrived_.notify_all();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void ThreadWorkQueue::run(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    if (isEnding_) {
        return;
    }
    waiting_.push_back(std::move(work));
    if (waiting_.size() > idleThreadCount_ && threads_.size() < maximumThreadCount) {
        threads_.emplace_back([this] { serve(); });
    }
    arrived_.notify_one();
}

void ThreadWorkQueue::serve() {
    std::unique_lock lock(mutex_);
    while (true) {
        ++idleThreadCount_;
        arrived_.wait(lock, [this] { return isEnding_ || !waiting_.empty(); });
        --idleThreadCount_;
        if (isEnding_) {
            return;
        }
        auto work = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
    }
}

} // namespace brivandel
