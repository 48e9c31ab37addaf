#pragma once

#include "platform/linux/applescript/KeyTable.h"
#include "platform/linux/workstations/PlacedJson.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <variant>

namespace brivandel {

/// How a workstation is known, and its keys.
struct WorkstationProfile {
    /// As people call it.
    QString name;
    /// Names of its process, its executable or its window's class; never empty.
    QStringList processes;
    /// How far it was tried, as a sentence.
    QString tried;
    /// Never null.
    std::shared_ptr<const script::KeyTable> keys;

    /// Whether the workstation goes by that name, whatever its case.
    [[nodiscard]] bool isCalled(const QString& what) const;
};

/// Reads a profile. Pure; any thread.
[[nodiscard]] std::variant<WorkstationProfile, TextFault> parseWorkstationProfile(const QByteArray& text);

} // namespace brivandel
