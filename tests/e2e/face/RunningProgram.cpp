#include "e2e/face/RunningProgram.h"

#include <QCoreApplication>

namespace brivandel {

namespace {

constexpr int patienceMilliseconds = 20'000;

} // namespace

RunningProgram::RunningProgram(const QString& program, const QStringList& arguments) {
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(program, arguments);
    process_.waitForStarted(patienceMilliseconds);
}

RunningProgram::~RunningProgram() {
    process_.terminate();
    if (!process_.waitForFinished(patienceMilliseconds)) {
        process_.kill();
        process_.waitForFinished();
    }
}

std::optional<int> RunningProgram::end() {
    if (!process_.waitForFinished(patienceMilliseconds) || process_.exitStatus() != QProcess::NormalExit) {
        return std::nullopt;
    }
    return process_.exitCode();
}

std::optional<int> run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(patienceMilliseconds) || process.exitStatus() != QProcess::NormalExit) {
        return std::nullopt;
    }
    return process.exitCode();
}

QString builtProgram(const QString& name) {
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

} // namespace brivandel
