// What one transcript costs the main thread. The recogniser delivers a few a second while somebody speaks.

#include "AllocationCount.h"
#include "engine/TranscriptMatcher.h"

#include <QString>

#include <benchmark/benchmark.h>

namespace brivandel {
namespace {

// Twelve words each, as after a wake phrase.
const QString unmatched = QStringLiteral("could we have the lights a little lower for this one please");
const QString unmatchedBar = QStringLiteral("the bar on the corner of the street has a good piano");
const QString matched = QStringLiteral("well now could you maybe go and play that back for me");

CustomCommandList customCommands(std::int64_t count) {
    CustomCommandList commands;
    for (std::int64_t index = 0; index < count; ++index) {
        CustomCommand command;
        command.name = QStringLiteral("Command %1").arg(index);
        command.triggers = {QStringLiteral("mixdown number %1").arg(index),
                            QStringLiteral("bounce %1 now").arg(index),
                            QStringLiteral("sidechain %1").arg(index)};
        commands.append(command);
    }
    return commands;
}

void match(benchmark::State& state, const QString& text) {
    TranscriptMatcher matcher;
    matcher.setCustomCommands(customCommands(state.range(0)));
    benchmark::DoNotOptimize(matcher.match(text)); // what is made on first use is made here
    const long before = allocationCount();
    for (auto iteration : state) {
        benchmark::DoNotOptimize(matcher.match(text));
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
}

BENCHMARK_CAPTURE(match, nothing, unmatched)->Arg(0)->Arg(100)->Arg(1000);
BENCHMARK_CAPTURE(match, nothing_about_a_bar, unmatchedBar)->Arg(0);
BENCHMARK_CAPTURE(match, built_in, matched)->Arg(0);

} // namespace
} // namespace brivandel
