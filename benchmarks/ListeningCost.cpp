// listening_cost [NAME=SOUND-FILE...]: what listening costs with the system's own sound server and
// recogniser. Prints how soon the first sound comes after listening was switched on, and how much of one core
// and of memory it takes while each file is played into the default output. Run it under
// script/with-audio-server.

#include "listening/VoiceController.h"
#include "platform/Platform.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

using namespace brivandel;
using namespace std::chrono_literals;

void runLoopFor(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// From the switch to the first level that is shown; none within ten seconds is negative.
double millisecondsToFirstSound(VoiceController& controller) {
    QEventLoop loop;
    QTimer::singleShot(10s, &loop, &QEventLoop::quit);
    double time = -1;
    QElapsedTimer timer;
    QObject::connect(&controller, &VoiceController::audioLevelChanged, &loop, [&] {
        time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        loop.quit();
    });
    timer.start();
    controller.setIsListening(true);
    loop.exec();
    return time;
}

void reportFirstSound(VoiceController& controller) {
    constexpr int rounds = 7;
    // Longer than a stream that is not needed any more is kept open.
    constexpr auto idle = 2s;
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(millisecondsToFirstSound(controller));
        controller.setIsListening(false);
        runLoopFor(idle);
    }
    std::ranges::sort(times);
    std::printf("first sound after listening is switched on: median %.0f ms, worst %.0f ms\n",
                times[times.size() / 2], times.back());
}

// A line of /proc/self/status, in megabytes.
double megabytes(const QByteArray& line) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray& candidate : status.readAll().split('\n')) {
            if (candidate.startsWith(line)) {
                return candidate.mid(line.size()).simplified().split(' ').front().toDouble() / 1024;
            }
        }
    }
    return 0;
}

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void reportCost(VoiceController& controller, const QString& name, const QString& file) {
    constexpr auto time = 10s;
    int transcripts = 0;
    const auto connection = QObject::connect(&controller, &VoiceController::lastTranscriptChanged,
                                             &controller, [&transcripts] { ++transcripts; });
    QProcess player;
    if (!file.isEmpty()) {
        player.start(QStringLiteral("paplay"), {file});
        player.waitForStarted();
        runLoopFor(500ms);
    }
    const double before = processorSeconds();
    QElapsedTimer timer;
    timer.start();
    runLoopFor(time);
    const double cost = processorSeconds() - before;
    const double wall = static_cast<double>(timer.elapsed()) / 1000;
    player.kill();
    player.waitForFinished();
    QObject::disconnect(connection);
    std::printf("%-10s %5.1f %% of one core, %5.1f MB resident (%.1f s, %d transcripts)\n", qPrintable(name),
                100 * cost / wall, megabytes("VmRSS:"), wall, transcripts);
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("XDG_STATE_HOME", home.path().toLocal8Bit());
    const QCoreApplication application(argc, argv);

    const auto platform = makePlatform({.target = QStringLiteral("no workstation")});
    VoiceController controller(*platform);
    runLoopFor(500ms);
    reportFirstSound(controller);

    controller.setIsListening(true);
    runLoopFor(2s);
    reportCost(controller, QStringLiteral("silence"), {});
    for (const QString& argument : application.arguments().mid(1)) {
        reportCost(controller, argument.section(u'=', 0, 0), argument.section(u'=', 1));
    }
    controller.setIsListening(false);
    std::printf("at most    %.1f MB resident\n", megabytes("VmHWM:"));
}
