#include "platform/linux/TargetSetting.h"

#include "platform/linux/defaults/PropertyListDefaultsStore.h"

#include <QFile>
#include <QFileInfo>

namespace brivandel {

namespace {

QString firstLineThatCounts(QFile& file) {
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (!line.isEmpty() && !line.startsWith(u'#')) {
            return line;
        }
    }
    return {};
}

} // namespace

QString targetFilePath() {
    return QFileInfo(PropertyListDefaultsStore::defaultPath()).absolutePath() + QStringLiteral("/target");
}

TargetSetting targetSetting(const PlatformOptions& options, const QString& filePath) {
    if (!options.target.trimmed().isEmpty()) {
        return {TargetName::fromSetting(options.target), QStringLiteral("--target"), {}};
    }
    const QString variable = QStringLiteral("BRIVANDEL_TARGET");
    if (const QString value = qEnvironmentVariable(variable.toLatin1().constData());
        !value.trimmed().isEmpty()) {
        return {TargetName::fromSetting(value), variable, {}};
    }
    QFile file(filePath);
    if (!file.exists()) {
        return {};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return {{}, {}, QStringLiteral("%1: %2").arg(filePath, file.errorString())};
    }
    const QString line = firstLineThatCounts(file);
    return line.isEmpty() ? TargetSetting() : TargetSetting{TargetName::fromSetting(line), filePath, {}};
}

} // namespace brivandel
