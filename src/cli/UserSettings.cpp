#include "cli/UserSettings.h"

#include "listening/Settings.h"
#include "platform/PlatformFactory.h"
#include "platform/qt/LogFile.h"

#include <chrono>
#include <ostream>

namespace brivandel {

namespace {

template <typename Result>
Result withUserDefaults(std::ostream& err, const std::function<Result(DefaultsStore&)>& use) {
    LogFile log(LogFile::logDirectory(), [] { return std::chrono::system_clock::now(); });
    const auto store = makeDefaultsStore(
        log, [&err](const QString& message) { err << "brivandel: " << message.toStdString() << '\n'; });
    return use(*store);
}

} // namespace

UserSettings readUserSettings(std::ostream& err) {
    return withUserDefaults<UserSettings>(err, [](DefaultsStore& store) {
        const Settings settings(store);
        return UserSettings{
            .wakeWord = settings.wakeWord(),
            .useWakeWord = settings.useWakeWord().value_or(true),
            .customCommands = settings.customCommands().value_or(CustomCommandList()),
            .triggerOverrides = settings.triggerOverrides().value_or(TriggerOverrides()),
        };
    });
}

QVariantMap readUserDefaults(std::ostream& err) {
    return withUserDefaults<QVariantMap>(err, [](DefaultsStore& store) { return store.objects(); });
}

} // namespace brivandel
