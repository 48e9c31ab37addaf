#pragma once

#include <QString>

#include <chrono>

namespace brivandel {

/// Waits for a file that another process writes to; it must be there.
class FileChange {
public:
    explicit FileChange(const QString& path);
    ~FileChange();
    FileChange(const FileChange&) = delete;
    FileChange& operator=(const FileChange&) = delete;

    /// Returns once the file has been written to since this object was made or last waited; false when that
    /// did not happen before the deadline.
    [[nodiscard]] bool wait(std::chrono::steady_clock::time_point deadline) const;

private:
    int notifications_;
};

} // namespace brivandel
