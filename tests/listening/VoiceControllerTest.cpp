#include "listening/VoiceController.h"

#include "listening/WatchedPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class VoiceControllerTest : public testing::Test {
protected:
    VoiceControllerTest() { watched_.mainQueue().runDue(); }

    void hear(const QString& text) {
        watched_.scripted().speechRecognition.deliver(RecognitionResult{.formattedString = text},
                                                      std::nullopt, std::nullopt);
        watched_.mainQueue().runDue();
    }

    WatchedPlatform watched_;
    VoiceController controller_{watched_.platform()};
};

TEST_F(VoiceControllerTest, SwitchedOnAndOffInOneTurn_StaysStopped) {
    controller_.setIsListening(true);
    controller_.setIsListening(false);
    watched_.mainQueue().runDue();
    EXPECT_EQ(controller_.statusMessage(), QStringLiteral("Stopped"));
    EXPECT_EQ(watched_.holdings(), Holdings());
}

TEST_F(VoiceControllerTest, RestartedInTheTurnOfItsStart_HasNoSessionTimerWhileItWaits) {
    controller_.setIsListening(true);
    controller_.setSelectedAudioDevice(QStringLiteral("vmic"));
    watched_.mainQueue().advance(299ms);
    EXPECT_EQ(watched_.holdings().sessionTimers, 0);
    watched_.mainQueue().advance(1ms);
    EXPECT_EQ(watched_.holdings().sessionTimers, 1);
}

TEST_F(VoiceControllerTest, SixtyCommands_LeaveTheNewestFiftyNewestFirst) {
    controller_.setIsListening(true);
    std::vector<CommandExecution> executed;
    for (int turn = 0; turn < 60; ++turn) {
        // By turns, so that none is an echo.
        const VoiceCommand command = turn % 3 == 0   ? VoiceCommand::play
                                     : turn % 3 == 1 ? VoiceCommand::stop
                                                     : VoiceCommand::undo;
        hear(QStringLiteral("hey logic ") + rawValue(command));
        const CommandHistory history = controller_.commandHistory();
        ASSERT_EQ(history.size(), std::min(turn + 1, 50));
        EXPECT_EQ(history.front().command, command);
        EXPECT_EQ(history.front().timestamp, watched_.mainQueue().wallTime());
        EXPECT_TRUE(history.front().success);
        executed.push_back(history.front());
        watched_.mainQueue().advance(2s);
    }
    const CommandHistory history = controller_.commandHistory();
    for (std::size_t place = 0; place < 50; ++place) {
        const CommandExecution& kept = history.at(static_cast<qsizetype>(place));
        const CommandExecution& wanted = executed.at(59 - place);
        EXPECT_EQ(kept.id, wanted.id) << place;
        EXPECT_EQ(kept.command, wanted.command) << place;
        EXPECT_EQ(kept.timestamp, wanted.timestamp) << place;
    }
}

TEST_F(VoiceControllerTest, FailureAfterASuccess_LeavesTheHistoryAsItWas) {
    controller_.setIsListening(true);
    hear(QStringLiteral("hey logic play"));
    const CommandHistory before = controller_.commandHistory();
    ASSERT_EQ(before.size(), 1);
    watched_.mainQueue().advance(5s);

    watched_.scripted().scriptHost.setOutcome(ScriptErrorDictionary(), {});
    int assignments = 0;
    QObject::connect(&controller_, &VoiceController::commandHistoryChanged, &controller_,
                     [&assignments] { ++assignments; });
    hear(QStringLiteral("hey logic stop"));
    EXPECT_EQ(controller_.statusMessage(), QStringLiteral("Error: Unknown error"));
    EXPECT_EQ(controller_.lastCommand(), QStringLiteral("stop"));
    ASSERT_EQ(controller_.commandHistory().size(), 1);
    EXPECT_EQ(controller_.commandHistory().front().id, before.front().id);
    EXPECT_EQ(assignments, 0);
}

TEST(VoiceControllerLaunch, ForeignObjectsUnderTheSeededKeys_AreFalseAndStay) {
    const QVariant foreign = QVariant::fromValue(ForeignObject());
    const QVariantMap stored = {{QStringLiteral("useWakeWord"), foreign},
                                {QStringLiteral("audioFeedback"), foreign},
                                {QStringLiteral("wakeWord"), foreign}};
    WatchedPlatform watched({}, stored);
    const VoiceController controller(watched.platform());
    EXPECT_FALSE(controller.useWakeWord());
    EXPECT_FALSE(controller.audioFeedbackEnabled());
    EXPECT_EQ(controller.wakeWord(), QStringLiteral("hey logic"));
    EXPECT_EQ(watched.scripted().defaults.objects(), stored);
}

} // namespace
} // namespace brivandel
