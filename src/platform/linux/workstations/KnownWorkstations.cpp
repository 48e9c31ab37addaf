#include "platform/linux/workstations/KnownWorkstations.h"

#include "platform/linux/defaults/PropertyListDefaultsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>

namespace brivandel {

namespace {

/// A profile has a few kilobytes; what is larger is none.
constexpr qint64 maxByteCount = qint64{256} * 1024;

std::variant<WorkstationProfile, QString> readProfile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return QStringLiteral("%1: %2").arg(path, file.errorString());
    }
    if (file.size() > maxByteCount) {
        return QStringLiteral("%1: the file is too large").arg(path);
    }
    auto parsed = parseWorkstationProfile(file.readAll());
    if (const auto* const fault = std::get_if<TextFault>(&parsed)) {
        return QStringLiteral("%1:%2:%3: %4")
            .arg(path, QString::number(fault->line), QString::number(fault->column), fault->sentence);
    }
    return std::get<WorkstationProfile>(std::move(parsed));
}

QStringList profilesIn(const QString& folder) {
    if (folder.isEmpty()) { // which a QDir takes for the current folder
        return {};
    }
    return QDir(folder).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
}

} // namespace

const KnownWorkstation* KnownWorkstations::called(const QString& name) const {
    const auto found = std::ranges::find_if(
        all, [&](const KnownWorkstation& known) { return known.profile.isCalled(name); });
    return found == all.end() ? nullptr : &*found;
}

QString ownWorkstationsFolder() {
    return QFileInfo(PropertyListDefaultsStore::defaultPath()).absolutePath() +
           QStringLiteral("/workstations");
}

QString shippedWorkstationsFolder() {
    return QStringLiteral(":/workstations");
}

KnownWorkstations readKnownWorkstations(const QString& ownFolder, const QString& shippedFolder) {
    QStringList shipped = profilesIn(shippedFolder);
    KnownWorkstations known;
    for (const QString& name : profilesIn(ownFolder)) {
        const QString path = ownFolder + u'/' + name;
        auto read = readProfile(path);
        if (auto* const profile = std::get_if<WorkstationProfile>(&read)) {
            known.all.push_back({std::move(*profile), path});
            shipped.removeOne(name);
        } else {
            known.problems += std::get<QString>(read) +
                              (shipped.contains(name) ? QStringLiteral("; the shipped one is used instead")
                                                      : QStringLiteral("; it is left out"));
        }
    }
    for (const QString& name : std::as_const(shipped)) {
        const QString path = shippedFolder + u'/' + name;
        auto read = readProfile(path);
        if (auto* const profile = std::get_if<WorkstationProfile>(&read)) {
            known.all.push_back({std::move(*profile), path});
        } else {
            known.problems += std::get<QString>(read);
        }
    }
    return known;
}

} // namespace brivandel
