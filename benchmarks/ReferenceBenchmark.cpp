// What a keystroke costs where lists are long: searching the command reference, trying a phrase in it, and
// the advice under a field for a trigger phrase. A frame of a display is 16.7 ms; the counter says how many
// frames it takes.

#include "listening/LivePhraseAdvice.h"
#include "listening/SpokenTrial.h"
#include "listening/VoiceController.h"
#include "platform/scripted/ScriptedPlatform.h"
#include "views/CommandReferenceView.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>

#include <benchmark/benchmark.h>

namespace brivandel {
namespace {

constexpr double framesPerSecond = 60;

CustomCommandList commands(int count) {
    CustomCommandList list;
    for (int index = 0; index < count; ++index) {
        list += {.id = QUuid::createUuid(),
                 .name = QStringLiteral("Toggle Channel %1").arg(index),
                 .triggers = {QStringLiteral("channel %1 up").arg(index),
                              QStringLiteral("fader %1 down").arg(index)},
                 .capturedKey = {.keyCode = 7,
                                 .modifierFlags = 0,
                                 .displayString = QStringLiteral("X"),
                                 .appleScript = QStringLiteral("key code 7")}};
    }
    return list;
}

struct Reference {
    explicit Reference(int commandCount)
        : scripted(makeScriptedPlatform([](auto, auto) {}))
        , controller(*scripted.platform)
        , spokenTrial(controller, *scripted.platform)
        , view(controller, *scripted.platform->mainQueue, spokenTrial) {
        controller.setCustomCommands(commands(commandCount));
        view.resize(600, 500);
        view.show();
        view.findChild<QListWidget*>(QStringLiteral("sidebar"))->setCurrentRow(0);
        QCoreApplication::processEvents();
    }

    ScriptedPlatform scripted;
    VoiceController controller;
    SpokenTrial spokenTrial;
    CommandReferenceView view;
};

// Frames a keystroke: the inverse of keystrokes a frame.
void countFrames(benchmark::State& state) {
    state.counters["frames"] = benchmark::Counter(static_cast<double>(state.iterations()) / framesPerSecond,
                                                  benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Letter by letter, and the field cleared again: each change is laid out and painted before the next.
void typeInto(benchmark::State& state, const char* fieldName, const QString& text) {
    Reference reference(static_cast<int>(state.range(0)));
    auto* field = reference.view.findChild<QLineEdit*>(QString::fromLatin1(fieldName));
    qsizetype length = 0;
    for ([[maybe_unused]] auto keystroke : state) {
        length = length < text.size() ? length + 1 : 0;
        field->setText(text.first(length));
        QCoreApplication::processEvents();
        reference.view.repaint();
    }
    countFrames(state);
}

void searchReference(benchmark::State& state) {
    typeInto(state, "search", QStringLiteral("channel 199"));
}

void tryPhrase(benchmark::State& state) {
    typeInto(state, "trialPhrase", QStringLiteral("hey logic channel 1999 up"));
}

void advise(benchmark::State& state) {
    auto scripted = makeScriptedPlatform([](auto, auto) {});
    VoiceController controller(*scripted.platform);
    controller.setCustomCommands(commands(static_cast<int>(state.range(0))));
    // Every phrase has a sound, so that all are compared.
    for (const CustomCommand& command : controller.customCommands()) {
        for (const QString& phrase : command.triggers) {
            scripted.pronunciations.known.insert(
                phrase, {{phrase, QStringLiteral("CH AE N AH L N AY N T IY N AH P"), true}});
        }
    }
    const QString text = QStringLiteral("channel to the left");
    LivePhraseAdvice advice(controller, {*scripted.platform->mainQueue, *scripted.platform->workQueue,
                                         scripted.platform->pronunciations});
    for (qsizetype length = 1; length <= text.size(); ++length) {
        const QString phrase = text.first(length);
        scripted.pronunciations.known.insert(
            phrase, {{phrase, QStringLiteral("CH AE N AH L T UW DH AH L EH F T"), true}});
        static_cast<void>(advice.advice(phrase, QUuid()));
        scripted.mainQueue.runDue();
    }
    qsizetype length = 0;
    for ([[maybe_unused]] auto keystroke : state) {
        length = length % text.size() + 1;
        benchmark::DoNotOptimize(advice.advice(text.first(length), QUuid()));
    }
    countFrames(state);
}

BENCHMARK(searchReference)->Arg(0)->Arg(20)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(tryPhrase)->Arg(0)->Arg(20)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(advise)->Arg(0)->Arg(20)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brivandel

int main(int argumentCount, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    brivandel::applyTheme(application, brivandel::Appearance::Light);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
