#pragma once

#include "commands/CapturedKey.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

namespace brivandel {

/// A command of the user's own: what is said, and the shortcut that it sends.
struct CustomCommand {
    QUuid id;
    QString name;
    QStringList triggers; ///< in the user's order
    CapturedKey capturedKey;
    bool isEnabled = true;

    bool operator==(const CustomCommand&) const = default;
};

using CustomCommandList = QList<CustomCommand>;

} // namespace brivandel
