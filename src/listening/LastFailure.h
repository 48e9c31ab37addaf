#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace brivandel {

class VoiceController;

/// What went wrong, as the status line said it, and when.
struct FailureRecord {
    QString text;
    QDateTime when;

    bool operator==(const FailureRecord&) const = default;
};

/// Whether a status message tells of a failure, of listening or of a command.
[[nodiscard]] bool isFailureStatus(const QString& status);

/// What a file holds that a LastFailure has written; none when there is no such file, or nothing of the kind
/// in it.
[[nodiscard]] std::optional<FailureRecord> readFailureRecord(const QString& path);

/// Remembers the last failure, whose status message stands only until the next one, over the end of the
/// program too. Main thread.
class LastFailure final : public QObject {
    Q_OBJECT

public:
    using WallClock = std::function<QDateTime()>;

    /// Begins with what an earlier run has noted in the file, whose folder is made when it is needed. That
    /// the file cannot be written is no failure to speak of. The controller must outlive it.
    LastFailure(const VoiceController& controller, QString path,
                WallClock now = QDateTime::currentDateTimeUtc);

    /// None when nothing has failed yet.
    [[nodiscard]] const std::optional<FailureRecord>& record() const { return record_; }

Q_SIGNALS:
    void changed();

private:
    void note(const QString& status);
    void store() const;

    QString path_;
    WallClock now_;
    std::optional<FailureRecord> record_;
    std::optional<FailureRecord> stored_;
};

} // namespace brivandel
