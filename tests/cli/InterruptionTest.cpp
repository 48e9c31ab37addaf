#include "cli/listen/Interruption.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <array>
#include <csignal>

namespace brivandel {
namespace {

void (*handlerOf(int signal))(int) {
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler;
}

class InterruptionTest : public testing::TestWithParam<int> {
protected:
    int argumentCount_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication application_{argumentCount_, arguments_.data()};
};

TEST_P(InterruptionTest, Signal_ComesAsOneCallOfTheEventLoop) {
    int calls = 0;
    const Interruption interruption([&calls] { ++calls; });
    std::raise(GetParam());
    EXPECT_EQ(calls, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
    std::raise(GetParam());
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
}

TEST_P(InterruptionTest, SignalIgnoredBefore_CountsUnlessItIsTheHangUpUnderNohup) {
    std::signal(GetParam(), SIG_IGN);
    {
        int calls = 0;
        const Interruption interruption([&calls] { ++calls; });
        std::raise(GetParam());
        QCoreApplication::processEvents();
        EXPECT_EQ(calls, GetParam() == SIGHUP ? 0 : 1);
    }
    EXPECT_EQ(handlerOf(GetParam()), SIG_IGN);
    std::signal(GetParam(), SIG_DFL);
}

TEST_P(InterruptionTest, Destroyed_PutsBackWhatTheSignalDid) {
    {
        const Interruption interruption([] {});
    }
    EXPECT_EQ(handlerOf(GetParam()), SIG_DFL);
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptionTest, testing::Values(SIGINT, SIGTERM, SIGHUP));

} // namespace
} // namespace brivandel
