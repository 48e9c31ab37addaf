#include "platform/linux/TargetSetting.h"

namespace brivandel {

TargetName targetSetting(const PlatformOptions& options) {
    return TargetName::fromSetting(options.target.isEmpty() ? qEnvironmentVariable("BRIVANDEL_TARGET")
                                                            : options.target);
}

} // namespace brivandel
