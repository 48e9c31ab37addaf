#include "platform/Autostart.h"

#include "platform/macos/MacBundle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

// An agent of the user's own, which launchd starts at login (launchd.plist(5)).
namespace brivandel {

namespace {

QString agentPath() {
    return userLibraryFolder() + QStringLiteral("/LaunchAgents/org.brivandel.Brivandel.plist");
}

QByteArray agentFor(const QString& program) {
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                          "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                          "<plist version=\"1.0\">\n"
                          "<dict>\n"
                          "    <key>Label</key>\n"
                          "    <string>org.brivandel.Brivandel</string>\n"
                          "    <key>ProgramArguments</key>\n"
                          "    <array>\n"
                          "        <string>%1</string>\n"
                          "    </array>\n"
                          "    <key>RunAtLoad</key>\n"
                          "    <true/>\n"
                          "</dict>\n"
                          "</plist>\n")
        .arg(program.toHtmlEscaped())
        .toUtf8();
}

} // namespace

Autostart autostart() {
    return {.isOn = QFile::exists(agentPath()), .entryPath = agentPath()};
}

std::optional<QString> setAutostart(bool on, const QString& program) {
    const QString path = agentPath();
    const auto failure = [&path](const QString& reason) {
        return QStringLiteral("%1: %2").arg(path, reason);
    };
    if (!on) {
        QFile file(path);
        return !file.exists() || file.remove() ? std::nullopt : std::optional(failure(file.errorString()));
    }
    if (!program.startsWith(u'/')) {
        return failure(QStringLiteral("the place of the program is not known"));
    }
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(agentFor(program)) < 0 || !file.commit()) {
        return failure(file.errorString());
    }
    return std::nullopt;
}

} // namespace brivandel
