#include "platform/Targets.h"
#include "platform/macos/MacTrust.h"

namespace brivandel {

// Logic Pro itself is here, and nothing stands for it.
TargetList listTargets(const QString& /*wanted*/) {
    const QString workstation = QStringLiteral("Logic Pro");
    TargetList list;
    list.targets.push_back({.name = workstation,
                            .isRunning = isRunning(workstation),
                            .isChosen = true,
                            .profile = {},
                            .tried = {}});
    return list;
}

QString targetInWords(const QString& /*wanted*/) {
    return isRunning(QStringLiteral("Logic Pro"))
               ? QStringLiteral("Commands go to Logic Pro.")
               : QStringLiteral("Commands go to Logic Pro, which is not running.");
}

} // namespace brivandel
