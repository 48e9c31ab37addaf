// A stand-in for the workstation: a window that shows the keys it gets, and writes a line of JSON about each
// to the standard output. A line "dialog" on the standard input opens a dialog of it; the end of that input
// ends it.

#include "demo/Ending.h"
#include "demo/KeyWindow.h"

#include <QCommandLineParser>
#include <QGuiApplication>

#include <cstdio>
#include <memory>

namespace {

void writeLine(const QByteArray& line) {
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout);
}

std::unique_ptr<brivandel::KeyWindow> makeWindow(const QString& title, const QByteArray& readyEvent) {
    return std::make_unique<brivandel::KeyWindow>(
        title, brivandel::KeyWindow::Reports{
                   .ready =
                       [readyEvent](WId window) {
                           writeLine(R"({"event":")" + readyEvent + R"(","window":)" +
                                     QByteArray::number(window) + "}\n");
                       },
                   .key = [](const brivandel::ReceivedKey& key) { writeLine(key.toJsonLine()); },
               });
}

} // namespace

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments += QString::fromLocal8Bit(argv[i]);
    }
    QCommandLineParser parser;
    const QCommandLineOption title(QStringLiteral("title"), QStringLiteral("The window's title."),
                                   QStringLiteral("text"), QStringLiteral("Logic Pro"));
    const QCommandLineOption className(QStringLiteral("class"), QStringLiteral("The class in WM_CLASS."),
                                       QStringLiteral("name"), QStringLiteral("Logic Pro"));
    const QCommandLineOption instanceName(QStringLiteral("name"), QStringLiteral("The instance in WM_CLASS."),
                                          QStringLiteral("name"), QStringLiteral("logic-pro"));
    parser.addOptions({title, className, instanceName});
    if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty()) {
        std::fprintf(stderr, "usage: %s [--title TEXT] [--class NAME] [--name NAME]\n", argv[0]);
        return 2;
    }
    // Where Qt looks for it, and before there is an application.
    qputenv("RESOURCE_NAME", parser.value(instanceName).toLocal8Bit());

    brivandel::Ending::takeSignals();
    const QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(parser.value(className));
    const auto window = makeWindow(parser.value(title), "ready");
    window->show();

    std::unique_ptr<brivandel::KeyWindow> dialog;
    const brivandel::Ending ending(
        [&](const QByteArray& line) {
            if (line == "dialog") {
                dialog = makeWindow(QStringLiteral("Dialog"), "dialog");
                dialog->setFlags(Qt::Dialog);
                dialog->setTransientParent(window.get());
                dialog->show();
            } else if (line == "mark") {
                writeLine(QByteArray(R"({"event":"mark"})") + '\n');
            }
        },
        [] { QCoreApplication::quit(); });
    return QGuiApplication::exec();
}
