#pragma once

#include <QByteArray>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace brivandel {

/// While it lives, no file of this process can grow beyond the size: to a writer it is a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit full{size, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*signal_)(int);
    rlimit before_{};
};

/// While it lives, the folder is the user's own and may be read but not written to. Root, whom modes do not
/// stop, is somebody else meanwhile: the files that are in it become theirs, and the path to it is opened.
class ReadOnlyFolder {
public:
    ReadOnlyFolder(QByteArray folder, const QByteArray& file) : folder_(std::move(folder)) {
        if (geteuid() == 0) {
            for (qsizetype end = folder_.indexOf('/', 1); end > 0; end = folder_.indexOf('/', end + 1)) {
                const QByteArray above = folder_.left(end);
                struct stat status {};
                if (stat(above.constData(), &status) == 0 && status.st_uid == 0) {
                    chmod(above.constData(), status.st_mode | S_IXOTH | S_IXGRP);
                }
            }
            // The file need not be there.
            static_cast<void>(chown(file.constData(), nobody, nobody));
            isSomebodyElse_ = chown(folder_.constData(), nobody, nobody) == 0;
        }
        chmod(folder_.constData(), S_IRUSR | S_IXUSR);
        isSomebodyElse_ = isSomebodyElse_ && seteuid(nobody) == 0;
    }
    ~ReadOnlyFolder() {
        if (isSomebodyElse_) {
            static_cast<void>(seteuid(0));
        }
        chmod(folder_.constData(), S_IRWXU);
    }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

    /// Whether it is as promised.
    [[nodiscard]] bool isReadOnly() const {
        return eaccess(folder_.constData(), W_OK) != 0 && eaccess(folder_.constData(), X_OK) == 0;
    }

private:
    static constexpr uid_t nobody = 65534;

    QByteArray folder_;
    bool isSomebodyElse_ = false;
};

} // namespace brivandel
