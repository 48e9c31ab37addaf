#include "platform/linux/audio/ServerControl.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>

namespace brivandel {

namespace {

QString run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(20'000) && process.exitCode() == 0)
        << program.toStdString() << ' ' << arguments.join(u' ').toStdString() << ": "
        << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString control() {
    return qEnvironmentVariable("AUDIO_SERVER_CONTROL");
}

void signalServer(int signal) {
    QFile note(qEnvironmentVariable("AUDIO_SERVER_DIRECTORY") + QStringLiteral("/server.pid"));
    ASSERT_TRUE(note.open(QIODevice::ReadOnly));
    const int process = note.readAll().trimmed().toInt();
    ASSERT_GT(process, 0);
    ASSERT_EQ(kill(process, signal), 0);
}

} // namespace

QString pactl(const QStringList& arguments) {
    return run(QStringLiteral("pactl"), arguments);
}

QString recordingOfThisProgram() {
    const QString list = pactl({QStringLiteral("list"), QStringLiteral("source-outputs")});
    const qsizetype name = list.indexOf(QStringLiteral("media.name = \"Voice control\""));
    return name < 0 ? QString() : list.mid(list.lastIndexOf(u'#', name)).section(u'\n', 0, 0);
}

void freezeServer() {
    signalServer(SIGSTOP);
}

void thawServer() {
    signalServer(SIGCONT);
}

void stopServer() {
    run(control(), {QStringLiteral("--stop")});
}

void startServer() {
    run(control(), {QStringLiteral("--start")});
}

QString plugInMicrophone(const QString& name, const QString& master) {
    return pactl({QStringLiteral("load-module"), QStringLiteral("module-remap-source"),
                  QStringLiteral("source_name=") + name, QStringLiteral("master=") + master,
                  QStringLiteral("channels=1"), QStringLiteral("channel_map=mono"),
                  QStringLiteral("remix=no"),
                  QStringLiteral("source_properties=device.description=Plugged_") + name});
}

void unplug(const QString& module) {
    pactl({QStringLiteral("unload-module"), module});
}

ContextWatch::ContextWatch(PulseAudioContext& context)
    : context_(context)
    , subscription_(context.observe([this] {
        const std::lock_guard lock(mutex_);
        ++changeCount_;
        changed_.notify_all();
    })) {}

bool ContextWatch::waitUntil(const std::function<bool(const AudioServer&)>& condition,
                             std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (true) {
        std::unique_lock lock(mutex_);
        const std::uint64_t seen = changeCount_;
        lock.unlock();
        if (condition(context_.server())) {
            return true;
        }
        lock.lock();
        if (!changed_.wait_until(lock, deadline, [&] { return changeCount_ != seen; })) {
            return false;
        }
    }
}

} // namespace brivandel
