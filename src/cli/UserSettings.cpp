#include "cli/UserSettings.h"

#include "listening/Settings.h"
#include "platform/PlatformFactory.h"
#include "platform/scripted/MemoryDefaultsStore.h"

#include <ostream>

namespace brivandel {

QVariantMap readUserDefaults(std::ostream& err) {
    const QString path = userDefaultsPath();
    auto read = readDefaultsFile(path);
    if (const auto* reason = std::get_if<QString>(&read)) {
        err << "brivandel: settings file " << path.toStdString()
            << " could not be read: " << reason->toStdString() << "; the defaults hold\n";
        return {};
    }
    return std::get<QVariantMap>(read);
}

UserSettings readUserSettings(std::ostream& err) {
    MemoryDefaultsStore store(readUserDefaults(err));
    const Settings settings(store);
    return {
        .wakeWord = settings.wakeWord(),
        .useWakeWord = settings.useWakeWord().value_or(true),
        .audioDevice = settings.audioDevice(),
        .customCommands = settings.customCommands().value_or(CustomCommandList()),
        .triggerOverrides = settings.triggerOverrides().value_or(TriggerOverrides()),
    };
}

} // namespace brivandel
