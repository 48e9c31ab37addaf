#include "platform/qt/QtMainQueue.h"

#include <QBasicTimer>
#include <QSocketNotifier>
#include <QTimerEvent>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <system_error>
#include <utility>

namespace brivandel {

namespace {

using std::chrono::milliseconds;

/// Runs the task once the moment has come, and then, if it belongs to a parent, is gone. It asks the clock
/// again when Qt says so, for Qt counts in an int of milliseconds (24 days) and may be a millisecond early.
class Alarm final : public QObject {
public:
    Alarm(milliseconds delay, MainQueue::Task task, QObject* parent)
        : QObject(parent)
        , due_(MainQueue::Clock::now() + std::clamp(delay, milliseconds(0), longestDelay))
        , task_(std::move(task)) {
        arm();
    }

protected:
    void timerEvent(QTimerEvent*) override {
        timer_.stop();
        if (MainQueue::Clock::now() < due_) {
            arm();
            return;
        }
        // The task may end the life of this alarm, so nothing of it is touched any more.
        const MainQueue::Task task = std::move(task_);
        if (parent() != nullptr) {
            delete this;
        }
        task();
    }

private:
    /// Far beyond any use, and far from where a time point overflows.
    static constexpr milliseconds longestDelay = std::chrono::years(100);
    static constexpr milliseconds longestStep{std::numeric_limits<int>::max()};

    void arm() {
        const auto rest = std::chrono::ceil<milliseconds>(due_ - MainQueue::Clock::now());
        timer_.start(static_cast<int>(std::clamp(rest, milliseconds(0), longestStep).count()),
                     Qt::PreciseTimer, this);
    }

    MainQueue::TimePoint due_;
    MainQueue::Task task_;
    QBasicTimer timer_;
};

class QtTimer final : public Timer {
public:
    QtTimer(milliseconds delay, MainQueue::Task task)
        : alarm_(std::make_unique<Alarm>(delay, std::move(task), nullptr)) {}

    void invalidate() override { alarm_.reset(); }

private:
    std::unique_ptr<Alarm> alarm_;
};

void setFlags(int descriptor) {
    ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

} // namespace

QtMainQueue::QtMainQueue() : delayed_(std::make_unique<QObject>()) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        throw std::system_error(errno, std::generic_category(), "the main queue cannot make its pipe");
    }
    std::ranges::for_each(ends, setFlags);
    wakeReadEnd_ = ends[0];
    wakeWriteEnd_ = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(wakeReadEnd_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { runPosted(); });
}

QtMainQueue::~QtMainQueue() {
    notifier_.reset();
    ::close(wakeReadEnd_);
    ::close(wakeWriteEnd_);
}

void QtMainQueue::post(Task task) {
    if (inbox_.put(std::move(task))) {
        wake();
    }
}

void QtMainQueue::postAfter(milliseconds delay, Task task) {
    // Its parent owns it until it has fired.
    new Alarm(delay, std::move(task), delayed_.get());
}

std::unique_ptr<Timer> QtMainQueue::startTimer(milliseconds delay, Task task) {
    return std::make_unique<QtTimer>(delay, std::move(task));
}

MainQueue::TimePoint QtMainQueue::now() const {
    return Clock::now();
}

MainQueue::WallTime QtMainQueue::wallTime() const {
    return std::chrono::system_clock::now();
}

void QtMainQueue::runPosted() {
    // In this order: what is put in after the taking finds an empty inbox, and wakes again.
    drainWakeUps();
    inbox_.takeAll(ready_);
    if (ready_.count() > 1) {
        // For an event loop that a task may run: the tasks after it are run there.
        wake();
    }
    // What a task posts is in the inbox, and waits for the next turn.
    while (!ready_.isEmpty()) {
        const Task task = ready_.takeFirst();
        task();
    }
}

void QtMainQueue::wake() const {
    // A pipe that is full wakes as well.
    constexpr char any = 0;
    std::ignore = ::write(wakeWriteEnd_, &any, sizeof any);
}

void QtMainQueue::drainWakeUps() const {
    std::array<char, 64> bytes{};
    while (::read(wakeReadEnd_, bytes.data(), bytes.size()) > 0) {
    }
}

} // namespace brivandel
