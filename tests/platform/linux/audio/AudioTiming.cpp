#include "platform/linux/audio/BlockCollector.h"
#include "platform/linux/audio/PulseAudioEngine.h"
#include "platform/linux/audio/ServerControl.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

using namespace brivandel;
using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void report(const char* what, std::vector<double> milliseconds) {
    std::ranges::sort(milliseconds);
    std::printf("%-44s median %7.1f ms, worst %7.1f ms\n", what, milliseconds[milliseconds.size() / 2],
                milliseconds.back());
}

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace

int main() {
    const auto connecting = Clock::now();
    PulseAudioContext context;
    const QString name = context.server().name;
    std::printf("%s: connected, lists there after %.1f ms\n", qPrintable(name),
                millisecondsSince(connecting));

    constexpr int rounds = 7;
    BlockCollector blocks;
    std::vector<double> fresh;
    std::vector<double> call;
    for (int round = 0; round < rounds; ++round) {
        PulseAudioEngine engine(context);
        engine.installTap(1024, engine.inputFormat(), blocks.tap());
        const auto start = Clock::now();
        std::ignore = engine.start();
        call.push_back(millisecondsSince(start));
        blocks.next(1, std::chrono::seconds(10));
        fresh.push_back(millisecondsSince(start));
    }
    report("start() itself", call);
    report("first block, new stream", fresh);

    PulseAudioEngine engine(context);
    engine.installTap(1024, engine.inputFormat(), blocks.tap());
    std::ignore = engine.start();
    blocks.next(1, std::chrono::seconds(10));
    std::vector<double> kept;
    for (int round = 0; round < rounds; ++round) {
        engine.stop();
        blocks.next(1, std::chrono::milliseconds(300)); // as long as a restart of recognition waits at least
        const auto start = Clock::now();
        std::ignore = engine.start();
        blocks.next(1, std::chrono::seconds(10));
        kept.push_back(millisecondsSince(start));
    }
    report("first block, stopped 300 ms before", kept);

    const auto wall = Clock::now();
    const double processor = processorSeconds();
    blocks.next(480, std::chrono::seconds(20));
    std::printf("capture at 48 kHz costs %.2f %% of one core (%.0f s measured)\n",
                100'000 * (processorSeconds() - processor) / millisecondsSince(wall),
                millisecondsSince(wall) / 1000);

    ContextWatch watch(context);
    stopServer();
    startServer();
    const auto ready = Clock::now();
    const bool isBack = watch.waitUntil([](const AudioServer& server) {
        return server.defaultSourceUid == QStringLiteral("vmic") && server.defaultMicrophone() != nullptr;
    });
    const double back = millisecondsSince(ready);
    std::ignore = engine.start();
    blocks.next(1, std::chrono::seconds(10));
    std::printf("server back: known %s%.1f ms after it was ready, first block after %.1f ms\n",
                isBack ? "" : "NOT ", back, millisecondsSince(ready));
}
