#include "platform/Autostart.h"
#include "platform/qt/AutostartFile.h"

#include <QFile>
#include <QStandardPaths>

// An entry in the user's own autostart folder, as the desktops of freedesktop.org read it.
namespace brivandel {

namespace {

QString entryPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/brivandel.desktop");
}

// Of a desktop entry's own kind of text, which a backslash introduces.
QString escaped(QString text) {
    return text.replace(u'\\', QStringLiteral("\\\\"));
}

// One argument of a command line: what a shell would act on stands in quotes, and "%" begins a field code.
QString quotedArgument(const QString& argument) {
    QString quoted;
    for (const QChar character : argument) {
        if (QStringView(u"\"`$\\").contains(character)) {
            quoted += u'\\';
        }
        quoted += character;
        if (character == u'%') {
            quoted += character;
        }
    }
    return escaped(u'"' + quoted + u'"');
}

QByteArray entryFor(const QString& program) {
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Brivandel\n"
                          "Comment=Control the Logic Pro workstation by voice\n"
                          "Icon=brivandel\n"
                          "TryExec=%1\n"
                          "Exec=%2\n")
        .arg(escaped(program), quotedArgument(program))
        .toUtf8();
}

} // namespace

Autostart autostart() {
    Autostart state{.isOn = false, .entryPath = entryPath()};
    QFile file(state.entryPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return state;
    }
    state.isOn = true;
    // A desktop's own list of what it starts switches entries off by these.
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().simplified().replace(" ", "").toLower();
        if (line == "hidden=true" || line == "x-gnome-autostart-enabled=false") {
            state.isOn = false;
        }
    }
    return state;
}

std::optional<QString> setAutostart(bool on, const QString& program) {
    return switchAutostartFile(on, entryPath(), program, entryFor);
}

} // namespace brivandel
