#pragma once

#include <QString>

namespace brivandel {

/// Holds an advisory lock on a file between processes, for as long as it lives. The file is made if need be,
/// stays empty, and is released by the system when a process dies. On a file system that knows no locks it
/// stands for one.
class FileLock {
public:
    /// Waits for whoever holds it, half a second at the most: nobody does for longer than it takes to write a
    /// small file, unless that program was stopped.
    explicit FileLock(const QString& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Why there is no lock, in words; empty when there is one.
    [[nodiscard]] const QString& problem() const { return problem_; }

private:
    int descriptor_ = -1;
    QString problem_;
};

} // namespace brivandel
