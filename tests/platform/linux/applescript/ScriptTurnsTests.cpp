#include "platform/linux/applescript/ScriptTurns.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <optional>

namespace brivandel::script {

namespace {

using namespace std::chrono_literals;

constexpr auto forEver = 30s;

} // namespace

TEST(ScriptTurns, FreeTurn_IsGivenAtOnce) {
    ScriptTurns turns;
    EXPECT_TRUE(turns.take(0s));
    EXPECT_TRUE(turns.take(0s)) << "the first one was given back";
}

TEST(ScriptTurns, TakenTurn_IsNotGivenWithinThePatience) {
    ScriptTurns turns;
    const auto held = turns.take(0s);
    EXPECT_FALSE(turns.take(0s));
    EXPECT_FALSE(turns.take(-1s));
}

TEST(ScriptTurns, ReturnedTurn_GoesToWhoWaits) {
    ScriptTurns turns;
    std::optional held = turns.take(0s);
    auto waiting = std::async(std::launch::async, [&] { return turns.take(forEver).has_value(); });
    held.reset();
    EXPECT_TRUE(waiting.get());
}

TEST(ScriptTurns, GivingUp_LetsTheNextOneIn) {
    ScriptTurns turns;
    std::optional held = turns.take(0s);
    EXPECT_FALSE(turns.take(1ms));
    held.reset();
    EXPECT_TRUE(turns.take(0s));
}

TEST(ScriptTurns, Closed_GivesNone) {
    ScriptTurns turns;
    const auto held = turns.take(0s);
    auto waiting = std::async(std::launch::async, [&] { return turns.take(forEver).has_value(); });
    turns.close();
    EXPECT_FALSE(waiting.get());
    EXPECT_FALSE(turns.take(0s));
}

} // namespace brivandel::script
