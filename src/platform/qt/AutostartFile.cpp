#include "platform/qt/AutostartFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace brivandel {

std::optional<QString> switchAutostartFile(bool on, const QString& path, const QString& program,
                                           QByteArray (*entryFor)(const QString& program)) {
    const auto failure = [&path](const QString& reason) {
        return QStringLiteral("%1: %2").arg(path, reason);
    };
    if (!on) {
        QFile file(path);
        return !file.exists() || file.remove() ? std::nullopt : std::optional(failure(file.errorString()));
    }
    if (!program.startsWith(u'/')) {
        return failure(QStringLiteral("the place of the program is not known"));
    }
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(entryFor(program)) < 0 || !file.commit()) {
        return failure(file.errorString());
    }
    return std::nullopt;
}

} // namespace brivandel
