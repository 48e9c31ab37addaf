#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace brivandel {

/// The user's own triggers for built-in commands, by the command's raw value. An entry replaces all default
/// triggers; an empty one switches the command off by voice.
using TriggerOverrides = QMap<QString, QStringList>;

} // namespace brivandel
