#include "listening/ListeningDay.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;
using State = SessionTable::State;

class ListeningDayTest : public testing::TestWithParam<std::uint64_t> {};

TEST_P(ListeningDayTest, TwentyFourHoursOfUse_KeepToTheStateTableAndLeaveNothing) {
    ListeningDay day(GetParam());
    day.spend(24h);

    // That it was a day worth looking at.
    EXPECT_GT(day.diary().steps, 2000);
    EXPECT_GT(day.diary().scripts, 100);
    EXPECT_GT(day.diary().notifications, 5);
    EXPECT_GT(day.diary().launches, 5);
    EXPECT_GT(day.diary().timesWithNothingHeld, 10);
    for (const State state : {State::Idle, State::WithoutRequest, State::Listening, State::Retrying,
                              State::EngineError, State::Restarting}) {
        EXPECT_GT(day.table().entries(state), 5) << static_cast<int>(state);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ListeningDayTest, testing::Range<std::uint64_t>(1, 6));

} // namespace
} // namespace brivandel
