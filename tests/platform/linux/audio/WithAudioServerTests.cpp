#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

namespace brivandel {

namespace {

/// The script, running a command beside a server of its own.
class WithAudioServer {
public:
    explicit WithAudioServer(const QStringList& arguments) {
        process_.start(QStringLiteral(WITH_AUDIO_SERVER), arguments);
    }

    int status() {
        EXPECT_TRUE(process_.waitForFinished(30'000));
        return process_.exitCode();
    }
    QString line() {
        while (!process_.canReadLine() && process_.waitForReadyRead(30'000)) {
        }
        return QString::fromUtf8(process_.readLine()).trimmed();
    }
    QString errors() { return QString::fromUtf8(process_.readAllStandardError()); }
    void terminate() { process_.terminate(); }

private:
    QProcess process_;
};

QStringList shell(const QString& script) {
    return {QStringLiteral("bash"), QStringLiteral("-c"), script};
}

/// Whether a process runs: one that has ended and that nobody has waited for yet is still listed.
bool isRunning(int processId) {
    QFile status(QStringLiteral("/proc/%1/stat").arg(processId));
    if (processId <= 0 || !status.open(QIODevice::ReadOnly)) {
        return false;
    }
    // "id (name) state ...", and the name may hold brackets.
    const QByteArray line = status.readAll();
    return !line.sliced(line.lastIndexOf(')')).startsWith(") Z");
}

} // namespace

TEST(WithAudioServer, CommandEnds_ItsStatusIsTheResult) {
    EXPECT_EQ(
        WithAudioServer(QStringList{QStringLiteral("pipewire")} + shell(QStringLiteral("exit 7"))).status(),
        7);
    EXPECT_EQ(
        WithAudioServer(QStringList{QStringLiteral("pulseaudio")} + shell(QStringLiteral("exit 0"))).status(),
        0);
}

TEST(WithAudioServer, NoCommand_SaysSo) {
    WithAudioServer run({QStringLiteral("pulseaudio")});
    EXPECT_EQ(run.status(), 125);
    EXPECT_TRUE(run.errors().contains(QStringLiteral("no command")));
}

TEST(WithAudioServer, TwoAtOnce_HaveServersOfTheirOwn) {
    const QStringList command =
        shell(QStringLiteral("echo $PULSE_SERVER; pactl list short sources | grep -c vmic"));
    WithAudioServer first(command);
    WithAudioServer second(command);
    EXPECT_NE(first.line(), second.line());
    EXPECT_EQ(first.line(), QStringLiteral("3"));
    EXPECT_EQ(second.line(), QStringLiteral("3"));
    EXPECT_EQ(first.status(), 0);
    EXPECT_EQ(second.status(), 0);
}

TEST(WithAudioServer, Terminated_EndsTheCommandAndTheServerAndClearsUp) {
    WithAudioServer run(shell(QStringLiteral("echo $$; echo $(<$AUDIO_SERVER_DIRECTORY/server.pid);"
                                             "echo $AUDIO_SERVER_DIRECTORY; exec sleep 1000")));
    const int command = run.line().toInt();
    const int server = run.line().toInt();
    const QString directory = run.line();
    ASSERT_TRUE(isRunning(command));
    ASSERT_TRUE(isRunning(server));
    run.terminate();
    EXPECT_EQ(run.status(), 143);
    EXPECT_FALSE(isRunning(command));
    EXPECT_FALSE(isRunning(server));
    EXPECT_FALSE(directory.isEmpty() || QDir(directory).exists());
}

} // namespace brivandel
