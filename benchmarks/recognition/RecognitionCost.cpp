// What the recogniser costs apart from listening: the time until it is ready, the beginning of a session,
// another vocabulary, and memory. Prints one JSON object.

#include "platform/linux/recognition/DecoderPool.h"

#include <QFile>

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

namespace brivandel {
namespace {

using Clock = std::chrono::steady_clock;

RecognitionVocabulary vocabulary(const QString& custom) {
    return {.wakePhrase = QStringLiteral("hey logic"),
            .wakePhraseRequired = true,
            .phrases = QStringLiteral(
                           "start recording|record|recording|stop recording|play|stop|pause|go to start|"
                           "go to beginning|rewind|fast forward|skip ahead|delete last take|delete take|"
                           "delete that|undo|redo|save project|save|save as|enable loop|loop on|disable loop|"
                           "loop off|loop this section|loop this|count me in|count in|play that back|"
                           "play it back|playback|stop playback|click on|metronome on|click off|"
                           "metronome off|enable trigger word|trigger word on|disable trigger word|"
                           "trigger word off")
                           .split(u'|')
                       << custom,
            .barPhrases = QStringLiteral("go to bar|play from bar|play at bar").split(u'|')};
}

double residentMegabytes() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    constexpr double pageMegabytes = 4096 / 1e6;
    return file.readAll().split(' ').at(1).toDouble() * pageMegabytes;
}

template <typename Action>
double milliseconds(Action&& action) {
    const auto begin = Clock::now();
    action();
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

nlohmann::ordered_json measure(int rebuildCount) {
    const double before = residentMegabytes();
    const auto pool = std::make_shared<DecoderPool>(ModelFiles::locate());
    nlohmann::ordered_json figures;
    figures["untilReadyMs"] = milliseconds([&] { pool->prepare(vocabulary(QStringLiteral("quantize"))); });
    figures["modelsMB"] = residentMegabytes() - before;
    figures["sessionStartMs"] = milliseconds(
        [&] { pool->lend(vocabulary(QStringLiteral("quantize")))->begin(Expecting::WakePhrase); });
    const auto rebuild = [&](int index) {
        pool->prepare(
            vocabulary(index % 2 == 0 ? QStringLiteral("unmute the synth") : QStringLiteral("overdub")));
    };
    // The first few find the size that all tables need.
    constexpr int warmUpCount = 20;
    for (int i = 0; i < warmUpCount; ++i) {
        rebuild(i);
    }
    const double settled = residentMegabytes();
    const double total = milliseconds([&] {
        for (int i = 0; i < rebuildCount; ++i) {
            rebuild(i);
        }
    });
    figures["rebuilds"] = rebuildCount;
    figures["rebuildMs"] = total / rebuildCount;
    figures["growthMB"] = residentMegabytes() - settled;
    return figures;
}

} // namespace
} // namespace brivandel

int main(int argc, char** argv) {
    constexpr int usual = 10000;
    std::cout << brivandel::measure(argc > 1 ? std::atoi(argv[1]) : usual).dump() << std::endl;
}
