#include "platform/qt/LogFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <utility>

namespace brivandel {

namespace {

QString timestamp(MainQueue::WallTime time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate);
}

} // namespace

const QString& LogFile::logDirectory() {
    static const QString directory = [] {
        QString path = QDir::homePath() + QStringLiteral("/Library/Logs/Brivandel");
        QDir().mkpath(path);
        return path;
    }();
    return directory;
}

LogFile::LogFile(const QString& directory, WallClock wallClock)
    : path_(directory + QStringLiteral("/Brivandel.log"))
    , wallClock_(std::move(wallClock)) {}

void LogFile::write(const QString& message) {
    const QByteArray line =
        (u'[' + timestamp(wallClock_()) + QStringLiteral("] ") + message + u'\n').toUtf8();

    // ExistingOnly: the file's first line is written whole or not at all, below.
    QFile file(path_);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly)) {
        file.write(line);
        return;
    }
    QSaveFile whole(path_);
    if (!file.exists() && whole.open(QIODevice::WriteOnly)) {
        // It holds what was heard, and the folders above it may be open to others.
        whole.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        whole.write(line);
        whole.commit();
    }
}

} // namespace brivandel
