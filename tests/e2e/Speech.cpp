#include "e2e/Speech.h"

#include <QProcess>

namespace brivandel {

namespace {

void run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(30'000) && process.exitCode() == 0)
        << program.toStdString() << ' ' << arguments.join(u' ').toStdString();
}

} // namespace

QString speak(const QString& phrase, const QString& folder) {
    const QString path = folder + u'/' + QString(phrase).replace(u' ', u'-') + QStringLiteral(".wav");
    const QString bare = folder + QStringLiteral("/bare.wav");
    run(QStringLiteral("flite"), {QStringLiteral("-voice"), QStringLiteral("slt"), QStringLiteral("-t"),
                                  phrase, QStringLiteral("-o"), bare});
    run(QStringLiteral("sox"), {bare, QStringLiteral("-r"), QStringLiteral("48000"), path,
                                QStringLiteral("pad"), QStringLiteral("0.3"), QStringLiteral("0.6")});
    return path;
}

QString speakInChannels(const QStringList& phrases, const QString& folder) {
    const QString path = folder + QStringLiteral("/channels.wav");
    QStringList arguments{QStringLiteral("-M")};
    for (const QString& phrase : phrases) {
        arguments += speak(phrase, folder);
    }
    run(QStringLiteral("sox"), arguments << path);
    return path;
}

void play(const QString& path, const QString& sink) {
    run(QStringLiteral("paplay"), {QStringLiteral("-d"), sink, path});
}

} // namespace brivandel
