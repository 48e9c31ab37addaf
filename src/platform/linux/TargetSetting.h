#pragma once

#include "platform/Platform.h"
#include "platform/linux/keys/KeySender.h"

#include <QString>

namespace brivandel {

/// Which program stands for "Logic Pro", and who says so.
struct TargetSetting {
    /// Empty: the program of that name.
    TargetName name;
    /// As a person writes it: an option, a variable, a file; empty when nobody says anything.
    QString saidBy;
    /// Why the file could not be read, though it is there; empty otherwise.
    QString problem;
};

/// The file that names the target, beside the settings: its first line that is neither empty nor begins with
/// "#".
[[nodiscard]] QString targetFilePath();

/// What was said at start, else the environment variable BRIVANDEL_TARGET, else the file.
[[nodiscard]] TargetSetting targetSetting(const PlatformOptions& options,
                                          const QString& filePath = targetFilePath());

} // namespace brivandel
