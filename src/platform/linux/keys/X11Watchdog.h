#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace brivandel::x11 {

/// Shuts a socket when a deadline passes, so that no call which waits for that socket's other end can hang: a
/// display server that is stopped or grabbed answers nothing, and Xlib's successors have no time-outs of
/// their own.
class Watchdog {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// The socket belongs to the caller and has to outlive this.
    explicit Watchdog(int socket);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// From now on that is the deadline; none: there is none.
    void watch(std::optional<Deadline> deadline);

private:
    void run();

    int socket_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<Deadline> deadline_; ///< guarded by mutex_
    bool ended_ = false;               ///< guarded by mutex_
    std::thread thread_;
};

} // namespace brivandel::x11
