#include "listening/SessionTable.h"
#include "listening/VoiceController.h"
#include "listening/WatchedPlatform.h"

#include <gtest/gtest.h>

#include <memory>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

constexpr int cycleCount = 10'000;

class ListeningCyclesTest : public testing::Test {
protected:
    ListeningCyclesTest() {
        QObject::connect(&controller_, &VoiceController::statusMessageChanged, &controller_,
                         [this] { table_.observeStatus(controller_.statusMessage()); });
        advance(0ms);
    }

    void advance(std::chrono::milliseconds time) {
        watched_.mainQueue().advance(time);
        table_.check(controller_, watched_.holdings());
    }
    void switchListening(bool on) {
        controller_.setIsListening(on);
        advance(0ms);
    }
    /// Until 45 seconds have passed in which nobody woke the session.
    void awaitRenewal() {
        advance(44s);
        for (int step = 0; step < 10 && table_.state() == SessionTable::State::Listening; ++step) {
            advance(100ms);
        }
    }
    void hear(const QString& text) {
        watched_.scripted().speechRecognition.deliver(RecognitionResult{.formattedString = text},
                                                      std::nullopt, std::nullopt);
        advance(0ms);
    }
    void fail() {
        watched_.scripted().speechRecognition.deliver(std::nullopt, QStringLiteral("No speech detected"),
                                                      std::nullopt);
        advance(0ms);
    }

    WatchedPlatform watched_{[this](auto event, const auto& members) { table_.observe(event, members); }};
    SessionTable table_{watched_.mainQueue()};
    VoiceController controller_{watched_.platform()};
};

TEST_F(ListeningCyclesTest, TenThousandStartsAndStops_LeaveNothing) {
    for (int cycle = 0; cycle < cycleCount && !HasFailure(); ++cycle) {
        switchListening(true);
        // A third ends at once, a third while it listens, a third in the middle of an utterance.
        if (cycle % 3 > 0) {
            advance(7s);
        }
        if (cycle % 3 == 2) {
            hear(QStringLiteral("hey logic"));
        }
        switchListening(false);
        ASSERT_EQ(watched_.holdings(), Holdings()) << "cycle " << cycle;
    }
    EXPECT_EQ(table_.entries(SessionTable::State::Listening), cycleCount);
    EXPECT_FALSE(HasFailure());
}

TEST_F(ListeningCyclesTest, TenThousandRestarts_LeaveOneSession) {
    switchListening(true);
    const Holdings listening = watched_.holdings();
    for (int cycle = 0; cycle < cycleCount && !HasFailure(); ++cycle) {
        switch (cycle % 4) {
        case 0:
            fail();
            break;
        case 1:
            hear(QStringLiteral("hey logic play"));
            break;
        case 2:
            controller_.setSelectedAudioDevice(std::nullopt);
            break;
        default:
            awaitRenewal();
        }
        ASSERT_EQ(table_.state(), SessionTable::State::Restarting) << "cycle " << cycle;
        advance(1s);
        ASSERT_EQ(watched_.holdings(), listening) << "cycle " << cycle;
    }
    switchListening(false);
    EXPECT_EQ(watched_.holdings(), Holdings());
    EXPECT_EQ(table_.entries(SessionTable::State::Restarting), cycleCount);
}

TEST_F(ListeningCyclesTest, TenThousandEnginesThatDoNotStart_LeaveNothing) {
    for (int cycle = 0; cycle < cycleCount && !HasFailure(); ++cycle) {
        watched_.scripted().audioEngine.failStarts(cycle % 2 + 1, QStringLiteral("no input"));
        switchListening(true);
        ASSERT_EQ(table_.state(), SessionTable::State::Retrying);
        advance(cycle % 3 == 0 ? 500ms : 1000ms);
        switchListening(false);
        advance(1s);
        watched_.scripted().audioEngine.failStarts(0, QString());
        ASSERT_EQ(watched_.holdings(), Holdings()) << "cycle " << cycle;
    }
    EXPECT_GT(table_.entries(SessionTable::State::EngineError), cycleCount / 4);
    EXPECT_GT(table_.entries(SessionTable::State::Listening), cycleCount / 4);
}

TEST_F(ListeningCyclesTest, SwitchedWhileARestartWaits_StartsOnceMoreAndLeavesNothing) {
    for (int cycle = 0; cycle < cycleCount && !HasFailure(); ++cycle) {
        switchListening(true);
        fail();
        switchListening(false);
        switchListening(true);
        advance(1s);
        switchListening(false);
        ASSERT_EQ(watched_.holdings(), Holdings()) << "cycle " << cycle;
    }
}

TEST(ListeningCycles, TenThousandPrograms_LeaveNothingWhenTheyEnd) {
    WatchedPlatform watched;
    for (int cycle = 0; cycle < cycleCount && !HasFailure(); ++cycle) {
        auto controller = std::make_unique<VoiceController>(watched.platform());
        watched.mainQueue().runDue();
        controller->setIsListening(true);
        watched.mainQueue().advance(cycle % 2 == 0 ? 0s : 50s);
        controller.reset();
        // The engine is left running: the program ends.
        watched.scripted().endProgram();
        const Holdings held = watched.holdings();
        ASSERT_EQ(held.requests + held.tasks + held.taps + held.sessionTimers + held.otherTimers, 0)
            << "cycle " << cycle;
        ASSERT_EQ(held.posts + held.delayedPosts, 0) << "cycle " << cycle;
    }
}

} // namespace
} // namespace brivandel
