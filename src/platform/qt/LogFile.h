#pragma once

#include "platform/DiagnosticLog.h"
#include "platform/MainQueue.h"

#include <QString>

#include <functional>

namespace brivandel {

/// The diagnostic log as a text file, one "[2026-11-15T23:22:41Z] message" line a message, UTF-8. Each
/// message opens and closes the file, so that what was written before a crash is there; nothing is ever
/// trimmed. A file that it makes is readable by its owner alone.
class LogFile final : public DiagnosticLog {
public:
    using WallClock = std::function<MainQueue::WallTime()>;

    /// "Library/Logs/Brivandel" in the home directory, on every system. Made, with the folders above it, on
    /// the first call of the process; that it cannot be made is not an error here.
    [[nodiscard]] static const QString& logDirectory();

    /// Writes Brivandel.log in that directory; wallClock gives the stamps.
    LogFile(const QString& directory, WallClock wallClock);

    void write(const QString& message) override;

private:
    QString path_;
    WallClock wallClock_;
};

} // namespace brivandel
