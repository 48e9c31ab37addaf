#include "platform/linux/defaults/FileLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace brivandel {

FileLock::FileLock(const QString& path)
    : descriptor_(
          open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
    while (descriptor_ >= 0 && flock(descriptor_, LOCK_EX) != 0) {
        if (errno != EINTR) {
            close(descriptor_);
            descriptor_ = -1;
        }
    }
}

FileLock::~FileLock() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

} // namespace brivandel
