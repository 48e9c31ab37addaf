#pragma once

#include "platform/MainQueue.h"
#include "platform/qt/TaskInbox.h"

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace brivandel {

/// The event loop of the thread that makes it, which is the main thread. Posting does not go through Qt's own
/// event queue, which locks: a task waits in a lock-free list and a pipe wakes the loop. What still waits
/// when the queue is destroyed is dropped. Not to be destroyed by one of its own tasks.
class QtMainQueue final : public MainQueue {
public:
    QtMainQueue();
    ~QtMainQueue() override;

    void post(Task task) override;
    void postAfter(std::chrono::milliseconds delay, Task task) override;
    [[nodiscard]] std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay, Task task) override;

    [[nodiscard]] TimePoint now() const override;
    [[nodiscard]] WallTime wallTime() const override;

private:
    void runPosted();
    void wake() const;
    void drainWakeUps() const;

    TaskInbox inbox_;
    /// Taken from the inbox and not yet run: a task that runs an event loop of its own has the next ones run
    /// in there.
    TaskInbox::Batch ready_;
    int wakeReadEnd_ = -1;
    int wakeWriteEnd_ = -1;
    /// Owner of the delayed tasks.
    std::unique_ptr<QObject> delayed_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace brivandel
