#include "e2e/ChildProcess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileInfo>

#include <csignal>

namespace brivandel {

namespace {

QString builtProgram(const QString& name) {
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath() + u'/' + name;
}

} // namespace

ChildProcess::ChildProcess(const QString& program, const QStringList& arguments) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(builtProgram(program), arguments);
    EXPECT_TRUE(process_.waitForStarted()) << program.toStdString();
}

ChildProcess::~ChildProcess() {
    if (process_.state() == QProcess::NotRunning) {
        return;
    }
    process_.closeWriteChannel();
    process_.terminate();
    if (!process_.waitForFinished(5'000)) {
        process_.kill();
        process_.waitForFinished();
    }
}

std::optional<ChildProcess::Event> ChildProcess::next(const std::function<bool(const Event&)>& condition,
                                                      std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    while (true) {
        while (process_.canReadLine()) {
            Event event = Event::parse(process_.readLine().toStdString());
            if (condition(event)) {
                return event;
            }
        }
        if (!process_.waitForReadyRead(static_cast<int>(deadline.remainingTime())) &&
            !process_.canReadLine()) {
            return std::nullopt;
        }
    }
}

std::optional<ChildProcess::Event> ChildProcess::next(const std::string& eventName,
                                                      std::chrono::milliseconds patience) {
    return next([&eventName](const Event& event) { return event.value("event", "") == eventName; }, patience);
}

std::optional<int> ChildProcess::interrupt() {
    kill(static_cast<pid_t>(process_.processId()), SIGINT);
    if (!process_.waitForFinished(10'000) || process_.exitStatus() != QProcess::NormalExit) {
        return std::nullopt;
    }
    return process_.exitCode();
}

} // namespace brivandel
