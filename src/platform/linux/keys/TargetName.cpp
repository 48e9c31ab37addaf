#include "platform/linux/keys/KeySender.h"

namespace brivandel {

TargetName TargetName::fromSetting(const QString& setting) {
    constexpr QStringView titlePrefix = u"title:";
    if (setting.startsWith(titlePrefix)) {
        return {.text = setting.mid(titlePrefix.size()).trimmed(), .by = By::WindowTitle};
    }
    return {.text = setting.trimmed(), .by = By::Process};
}

} // namespace brivandel
