#include "platform/PlatformFactory.h"
#include "platform/linux/TargetChoice.h"
#include "platform/linux/applescript/LinuxScriptHost.h"
#include "platform/linux/audio/PulseAudioContext.h"
#include "platform/linux/audio/PulseAudioDevices.h"
#include "platform/linux/audio/PulseAudioEngine.h"
#include "platform/linux/defaults/PropertyList.h"
#include "platform/linux/defaults/PropertyListDefaultsStore.h"
#include "platform/linux/desktop/DBusNotifier.h"
#include "platform/linux/desktop/LinuxPermissions.h"
#include "platform/linux/desktop/SoundThemeBeeper.h"
#include "platform/linux/keys/X11KeySender.h"
#include "platform/linux/keys/X11KeyboardLayout.h"
#include "platform/linux/recognition/DictionaryPronunciationGuide.h"
#include "platform/linux/recognition/InlineSpeechRecognition.h"
#include "platform/linux/recognition/ModelFiles.h"
#include "platform/linux/recognition/OfflineSpeechRecognition.h"
#include "platform/linux/recognition/RecognitionProblems.h"
#include "platform/qt/LogFile.h"
#include "platform/qt/QtMainQueue.h"
#include "platform/qt/ThreadWorkQueue.h"

#include <QDir>
#include <QFile>

#include <iostream>
#include <utility>

namespace brivandel {

namespace {

std::unique_ptr<ScriptHost> scriptHostFor(const TargetChoice& target) {
    return std::make_unique<LinuxScriptHost>(std::make_unique<X11KeySender>(), target.standIn());
}

} // namespace

std::unique_ptr<Platform> makePlatform(const PlatformOptions& options) {
    auto platform = std::make_unique<Platform>();
    const auto audio = std::make_shared<PulseAudioContext>();
    platform->foundation = audio;

    platform->mainQueue = std::make_unique<QtMainQueue>();
    platform->log = std::make_unique<LogFile>(LogFile::logDirectory(),
                                              [&queue = *platform->mainQueue] { return queue.wallTime(); });
    platform->keyboardLayout = std::make_unique<X11KeyboardLayout>();
    platform->permissions = std::make_unique<LinuxPermissions>(
        *platform->log, recognitionModelProblem, [audio] { return audio->server().hasMicrophone(); });
    platform->notifier = std::make_unique<DBusNotifier>();
    platform->beeper = std::make_unique<SoundThemeBeeper>(*platform->log);
    auto target = readTargetChoice(options.target);
    for (const QString& problem : target->known().problems) {
        platform->log->write(QStringLiteral("Workstation profile: ") + problem);
    }
    platform->scriptHost = scriptHostFor(*target);
    platform->target = std::move(target);
    platform->workQueue = std::make_unique<ThreadWorkQueue>();
    platform->defaults = std::make_unique<PropertyListDefaultsStore>(
        userDefaultsPath(), *platform->log, platform->workQueue.get(),
        [](const QString& message) { std::cerr << "brivandel: " << message.toStdString() << '\n'; });
    platform->audioDevices = std::make_unique<PulseAudioDevices>(*audio);
    platform->audioEngine = std::make_unique<PulseAudioEngine>(*audio);
    platform->speechRecognition = std::make_unique<OfflineSpeechRecognition>();
    platform->pronunciations =
        std::make_shared<DictionaryPronunciationGuide>(ModelFiles::locate().dictionary);
    return platform;
}

QString userDefaultsPath() {
    return PropertyListDefaultsStore::defaultPath();
}

QString lastFailurePath() {
    // Qt knows this folder from version 6.7 on only. A path that is not absolute counts for nothing there.
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (!folder.startsWith(u'/')) {
        folder = QDir::homePath() + QStringLiteral("/.local/state");
    }
    return folder + QStringLiteral("/brivandel/last-failure.json");
}

std::variant<QVariantMap, QString> readDefaultsFile(const QString& path) {
    QFile file(path);
    if (!file.exists()) {
        return QVariantMap();
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return file.errorString();
    }
    auto list = PropertyList::parse(file.readAll());
    if (const auto* error = std::get_if<PropertyListError>(&list)) {
        return error->reason;
    }
    return std::get<PropertyList>(list).objects();
}

std::unique_ptr<ScriptHost> makeScriptHost(const PlatformOptions& options) {
    return scriptHostFor(*readTargetChoice(options.target));
}

std::unique_ptr<SpeechRecognition> makeFileSpeechRecognition() {
    return std::make_unique<InlineSpeechRecognition>();
}

std::optional<QString> speechRecognitionProblem() {
    return recognitionModelProblem();
}

} // namespace brivandel
