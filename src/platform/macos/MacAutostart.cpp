#include "platform/Autostart.h"
#include "platform/macos/MacBundle.h"
#include "platform/qt/AutostartFile.h"

#include <QFile>

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
    return switchAutostartFile(on, agentPath(), program, agentFor);
}

} // namespace brivandel
