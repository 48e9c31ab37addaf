#pragma once

#include <QString>

namespace brivandel {

/// Holds an advisory lock on a file between processes, for as long as it lives. The file is made if need be,
/// stays empty, and is released by the system when a process dies. Without a lock (a folder that cannot be
/// written to) it holds nothing, which isHeld() tells.
class FileLock {
public:
    /// Waits for whoever holds it: nobody does for longer than it takes to write a small file.
    explicit FileLock(const QString& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    [[nodiscard]] bool isHeld() const { return descriptor_ >= 0; }

private:
    int descriptor_ = -1;
};

} // namespace brivandel
