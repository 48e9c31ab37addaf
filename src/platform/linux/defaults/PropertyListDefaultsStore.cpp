#include "platform/linux/defaults/PropertyListDefaultsStore.h"

#include "platform/DiagnosticLog.h"
#include "platform/WorkQueue.h"
#include "platform/linux/defaults/FileLock.h"
#include "platform/linux/defaults/PropertyList.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <utility>

namespace brivandel {

namespace {

// Settings hold what a person says to the program: nobody else's business.
constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// The new file stands under its final name when this returns; QSaveFile would also wait for the disk, which
// takes too long for a setting that is written at every keystroke.
bool replaceFile(const QString& path, const QByteArray& bytes, QString& failure) {
    QFile temporary(path + QStringLiteral(".new"));
    if (!temporary.open(QIODevice::WriteOnly | QIODevice::Truncate) || !temporary.setPermissions(ownerOnly) ||
        temporary.write(bytes) != bytes.size() || !temporary.flush()) {
        failure = temporary.errorString();
        temporary.close();
        // By its name: the object would not remove a file that it could not write to the end.
        QFile::remove(temporary.fileName());
        return false;
    }
    temporary.close();
    if (std::rename(QFile::encodeName(temporary.fileName()).constData(),
                    QFile::encodeName(path).constData()) != 0) {
        failure = qt_error_string();
        temporary.remove();
        return false;
    }
    return true;
}

void flushToDisk(const QString& path) {
    for (const QString& part : {path, QFileInfo(path).absolutePath()}) {
        const int descriptor = open(QFile::encodeName(part).constData(), O_RDONLY | O_CLOEXEC);
        if (descriptor >= 0) {
            fsync(descriptor);
            close(descriptor);
        }
    }
}

// A link to the file in a synchronised folder must stay a link, also while that folder is not there.
QString withoutLinks(QString path) {
    constexpr int mostLinks = 40; // as many as the system follows
    for (int links = 0; links < mostLinks && QFileInfo(path).isSymLink(); ++links) {
        path = QFileInfo(path).symLinkTarget();
    }
    return path;
}

} // namespace

QString PropertyListDefaultsStore::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/brivandel/defaults.plist");
}

PropertyListDefaultsStore::PropertyListDefaultsStore(QString path, DiagnosticLog& log, WorkQueue* workQueue,
                                                     Complaint complaint)
    : path_(withoutLinks(std::move(path)))
    , log_(log)
    , workQueue_(workQueue)
    , complaint_(std::move(complaint)) {
    list_ = readFile().value_or(PropertyList());
}

std::optional<PropertyList> PropertyListDefaultsStore::readFile() {
    QFile file(path_);
    if (!file.exists()) {
        return std::nullopt;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        const QString message = QStringLiteral("Settings file %1 could not be opened: %2. The defaults hold.")
                                    .arg(path_, file.errorString());
        log_.write(message);
        complaint_(message);
        return std::nullopt;
    }
    auto parsed = PropertyList::parse(file.readAll());
    if (const auto* error = std::get_if<PropertyListError>(&parsed)) {
        keepAside(error->reason);
        return std::nullopt;
    }
    return std::get<PropertyList>(std::move(parsed));
}

void PropertyListDefaultsStore::keepAside(const QString& reason) {
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmsszzz'Z'"));
    const QString aside = path_ + QStringLiteral(".unreadable-") + stamp;
    const bool isAside = QFile::rename(path_, aside);
    const QString message = QStringLiteral("Settings file %1 could not be read: %2. ").arg(path_, reason) +
                            (isAside ? QStringLiteral("It is kept as %1, and the defaults hold.").arg(aside)
                                     : QStringLiteral("It stays where it is, and the defaults hold."));
    log_.write(message);
    complaint_(message);
}

QVariant PropertyListDefaultsStore::object(const QString& key) const {
    return list_.object(key);
}

void PropertyListDefaultsStore::set(const QString& key, const QVariant& value) {
    change(key, value);
}

void PropertyListDefaultsStore::remove(const QString& key) {
    change(key, QVariant());
}

void PropertyListDefaultsStore::change(const QString& key, const QVariant& value) {
    unwritten_.insert(key, value);
    QDir().mkpath(QFileInfo(path_).absolutePath());
    const FileLock lock(path_ + QStringLiteral(".lock"));

    // Another program may have written since: its keys are taken over. A file that has become unreadable
    // meanwhile, or has gone, is made anew from what is in memory.
    if (auto stored = lock.problem().isEmpty() ? readFile() : std::nullopt) {
        list_ = std::move(*stored);
    }
    for (auto entry = unwritten_.cbegin(); entry != unwritten_.cend(); ++entry) {
        if (entry.value().isValid()) {
            list_.set(entry.key(), entry.value());
        } else {
            list_.remove(entry.key());
        }
    }

    QString failure = lock.problem();
    if (!failure.isEmpty() || !replaceFile(path_, list_.toBinary(), failure)) {
        log_.write(QStringLiteral("Settings file %1 could not be written: %2").arg(path_, failure));
        return;
    }
    unwritten_.clear();
    // One flush at a time: it is for the file as it is by then, and a slow disk must not fill the queue.
    if (workQueue_ != nullptr && !flushIsPending_->exchange(true)) {
        workQueue_->run([path = path_, pending = flushIsPending_] {
            pending->store(false);
            flushToDisk(path);
        });
    }
}

} // namespace brivandel
