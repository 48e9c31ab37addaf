#include "engine/EchoGuard.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

const QString play = QStringLiteral("play");
const QString stop = QStringLiteral("stop");
constexpr EchoGuard::TimePoint start{1000s};

TEST(EchoGuard, NothingRemembered_IsNoRepeat) {
    EXPECT_FALSE(EchoGuard().isRepeat(play, start));
}

TEST(EchoGuard, SameKey_IsARepeatForFourSeconds) {
    EchoGuard guard;
    guard.remember(play, start);
    EXPECT_TRUE(guard.isRepeat(play, start));
    EXPECT_TRUE(guard.isRepeat(play, start + 4s - 1ns));
    EXPECT_FALSE(guard.isRepeat(play, start + 4s));
}

TEST(EchoGuard, OtherKey_IsNoRepeat) {
    EchoGuard guard;
    guard.remember(play, start);
    EXPECT_FALSE(guard.isRepeat(stop, start));
}

TEST(EchoGuard, OnlyTheLastCommand_IsRemembered) {
    EchoGuard guard;
    guard.remember(play, start);
    guard.remember(stop, start + 1s);
    EXPECT_FALSE(guard.isRepeat(play, start + 1s));
    EXPECT_TRUE(guard.isRepeat(stop, start + 1s));
}

} // namespace
} // namespace brivandel
