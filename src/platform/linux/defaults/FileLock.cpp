#include "platform/linux/defaults/FileLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace brivandel {

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 500ms;
constexpr auto retryInterval = 2ms; // a write takes less than one

bool isUnsupported(int error) {
    return error == ENOLCK || error == ENOSYS || error == EOPNOTSUPP;
}

} // namespace

FileLock::FileLock(const QString& path)
    : descriptor_(
          open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
    if (descriptor_ < 0) {
        problem_ = QStringLiteral("its folder cannot be written to (%1)").arg(qt_error_string(errno));
        return;
    }
    const auto end = std::chrono::steady_clock::now() + patience;
    while (flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        if (isUnsupported(errno)) {
            return;
        }
        if (errno != EINTR && errno != EWOULDBLOCK) {
            problem_ = qt_error_string(errno);
            return;
        }
        if (std::chrono::steady_clock::now() > end) {
            problem_ = QStringLiteral("another program holds it");
            return;
        }
        std::this_thread::sleep_for(retryInterval);
    }
}

FileLock::~FileLock() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

} // namespace brivandel
