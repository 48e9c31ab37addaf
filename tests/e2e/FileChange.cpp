#include "e2e/FileChange.h"

#include <QFile>

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace brivandel {

FileChange::FileChange(const QString& path) : notifications_(inotify_init1(IN_CLOEXEC)) {
    EXPECT_GE(inotify_add_watch(notifications_, QFile::encodeName(path).constData(), IN_MODIFY), 0)
        << path.toStdString();
}

FileChange::~FileChange() {
    close(notifications_);
}

bool FileChange::wait(std::chrono::steady_clock::time_point deadline) const {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd descriptor{notifications_, POLLIN, 0};
    if (poll(&descriptor, 1, static_cast<int>(std::max<std::int64_t>(0, left.count()))) <= 0) {
        return false;
    }
    std::array<char, 4096> events{};
    return read(notifications_, events.data(), events.size()) > 0;
}

} // namespace brivandel
