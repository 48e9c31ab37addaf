#include "platform/PlatformFactory.h"
#include "platform/linux/defaults/PropertyList.h"
#include "platform/linux/defaults/PropertyListDefaultsStore.h"

#include <QFile>

namespace brivandel {
std::unique_ptr<DefaultsStore> makeDefaultsStore(DiagnosticLog& log,
                                                 std::function<void(const QString&)> complaint) {
    return std::make_unique<PropertyListDefaultsStore>(PropertyListDefaultsStore::defaultPath(), log, nullptr,
                                                       std::move(complaint));
}

std::variant<QVariantMap, QString> readDefaultsFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return file.errorString();
    }
    auto list = PropertyList::parse(file.readAll());
    if (const auto* error = std::get_if<PropertyListError>(&list)) {
        return error->reason;
    }
    return std::get<PropertyList>(list).objects();
}
std::unique_ptr<ScriptHost> makeScriptHost(const PlatformOptions&) {
    return nullptr;
}
std::unique_ptr<SpeechRecognition> makeFileSpeechRecognition() {
    return nullptr;
}
std::optional<QString> speechRecognitionProblem() {
    return QStringLiteral("x");
}
} // namespace brivandel
