#include "listening/VoiceController.h"
#include "listening/WatchedPlatform.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

void hear(WatchedPlatform& watched, const QString& text) {
    watched.scripted().speechRecognition.deliver(RecognitionResult{.formattedString = text}, std::nullopt,
                                                 std::nullopt);
    watched.mainQueue().runDue();
}

/// What a person sees, and when, in seconds of the clock that nobody sets.
class Day {
public:
    explicit Day(std::chrono::hours jump) : jump_(jump) {
        const auto note = [this] {
            seen_ << QStringLiteral("%1 %2 %3")
                         .arg(watched_.mainQueue().elapsed() / 1ms)
                         .arg(controller_.isListening() ? QStringLiteral("on") : QStringLiteral("off"),
                              controller_.statusMessage());
        };
        QObject::connect(&controller_, &VoiceController::statusMessageChanged, &controller_, note);
        QObject::connect(&controller_, &VoiceController::isListeningChanged, &controller_, note);
    }

    /// Awake over a jump, an echo over a jump, a session's renewal over a jump, and idle until it stops.
    QStringList run() {
        watched_.mainQueue().runDue();
        controller_.setIsListening(true);
        watched_.mainQueue().advance(1s);
        hear(watched_, QStringLiteral("hey logic"));
        jumpAfter(2s);
        hear(watched_, QStringLiteral("hey logic play"));
        jumpAfter(400ms);
        hear(watched_, QStringLiteral("hey logic play"));
        jumpAfter(20s);
        watched_.mainQueue().advance(60s);
        hear(watched_, QStringLiteral("hey logic stop"));
        jumpAfter(3min);
        watched_.mainQueue().advance(3h);
        seen_ << controller_.lastCommand();
        return seen_;
    }

private:
    void jumpAfter(std::chrono::milliseconds time) {
        watched_.mainQueue().advance(time / 2);
        watched_.mainQueue().setWallClockBy(jump_);
        watched_.mainQueue().advance(time / 2);
    }

    std::chrono::hours jump_;
    QStringList seen_;
    WatchedPlatform watched_;
    VoiceController controller_{watched_.platform()};
};

TEST(Faults, ClockThatJumpsByADay_ChangesNothingThatAPersonSees) {
    const QStringList steady = Day(0h).run();
    ASSERT_GE(steady.size(), 6);
    EXPECT_EQ(steady.back(), QStringLiteral("stop"));
    EXPECT_EQ(Day(24h).run(), steady);
    EXPECT_EQ(Day(-24h).run(), steady);
}

TEST(Faults, TwoHundredCommandsInTenSeconds_LeaveItListeningWithNothingPiledUp) {
    WatchedPlatform watched;
    VoiceController controller(watched.platform());
    watched.mainQueue().runDue();
    controller.setIsListening(true);
    watched.mainQueue().advance(1s);
    const Holdings listening = watched.holdings();

    const QStringList commands = {QStringLiteral("play"), QStringLiteral("stop"), QStringLiteral("undo"),
                                  QStringLiteral("redo")};
    int carriedOut = 0;
    QObject::connect(&controller, &VoiceController::commandHistoryChanged, &controller,
                     [&carriedOut] { ++carriedOut; });
    for (int number = 0; number < 200; ++number) {
        hear(watched, QStringLiteral("hey logic ") + commands[number % commands.size()]);
        watched.mainQueue().advance(50ms);
        EXPECT_LE(watched.holdings().tasks, 1);
        EXPECT_LE(watched.holdings().taps, 1);
        EXPECT_LE(watched.holdings().delayedPosts, listening.delayedPosts + 4);
    }
    // Each is carried out of a session of its own, and a session begins some time after the one before: not
    // all can be.
    EXPECT_GT(carriedOut, 2);
    EXPECT_LT(carriedOut, 50);

    watched.mainQueue().advance(20s);
    EXPECT_TRUE(controller.isListening());
    EXPECT_EQ(watched.holdings().tasks, listening.tasks);
    EXPECT_EQ(watched.holdings().taps, listening.taps);
    EXPECT_EQ(watched.holdings().sessionTimers, listening.sessionTimers);
    const int before = carriedOut;
    hear(watched, QStringLiteral("hey logic save project"));
    EXPECT_EQ(controller.lastCommand(), QStringLiteral("save project"));
    EXPECT_EQ(carriedOut, before + 1);
}

} // namespace
} // namespace brivandel
