#pragma once

#include "platform/Platform.h"
#include "platform/linux/keys/KeySender.h"

namespace brivandel {

/// Which program stands for "Logic Pro": what was said at start, else the environment variable
/// BRIVANDEL_TARGET, else the program of that name.
[[nodiscard]] TargetName targetSetting(const PlatformOptions& options);

} // namespace brivandel
