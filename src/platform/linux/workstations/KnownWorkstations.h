#pragma once

#include "platform/linux/workstations/WorkstationProfile.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace brivandel {

struct KnownWorkstation {
    WorkstationProfile profile;
    /// The file that it was read from; a resource's path begins with ":".
    QString path;
};

/// Every workstation that has a profile.
struct KnownWorkstations {
    /// The user's own first, then those that come with the program, each in the order of their files' names:
    /// where two fit one program or one name, the first of them goes.
    std::vector<KnownWorkstation> all;
    /// What is wrong with files, each with file, line and column, and what is used instead.
    QStringList problems;

    /// The first that goes by that name, if one does.
    [[nodiscard]] const KnownWorkstation* called(const QString& name) const;
};

/// The folder of the user's own profiles, beside the settings; it need not be there.
[[nodiscard]] QString ownWorkstationsFolder();
/// The folder of those that come with the program.
[[nodiscard]] QString shippedWorkstationsFolder();

/// Reads every *.json of both folders; an own file wins over a shipped one of the same name, unless it has a
/// fault. An empty text stands for no folder.
[[nodiscard]] KnownWorkstations
readKnownWorkstations(const QString& ownFolder = ownWorkstationsFolder(),
                      const QString& shippedFolder = shippedWorkstationsFolder());

} // namespace brivandel
