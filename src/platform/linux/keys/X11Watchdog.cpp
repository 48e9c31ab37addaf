#include "platform/linux/keys/X11Watchdog.h"

#include <sys/socket.h>

namespace brivandel::x11 {

Watchdog::Watchdog(int socket) : socket_(socket), thread_([this] { run(); }) {}

Watchdog::~Watchdog() {
    {
        const std::scoped_lock lock(mutex_);
        ended_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void Watchdog::watch(std::optional<Deadline> deadline) {
    {
        const std::scoped_lock lock(mutex_);
        deadline_ = deadline;
    }
    changed_.notify_one();
}

void Watchdog::run() {
    std::unique_lock lock(mutex_);
    while (!ended_) {
        if (!deadline_) {
            changed_.wait(lock);
        } else if (std::chrono::steady_clock::now() >= *deadline_) {
            ::shutdown(socket_, SHUT_RDWR);
            return;
        } else {
            const Deadline deadline = *deadline_;
            changed_.wait_until(lock, deadline);
        }
    }
}

} // namespace brivandel::x11
