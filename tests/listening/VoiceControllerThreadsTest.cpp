#include "listening/ThreadedPlatform.h"
#include "listening/VoiceController.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <functional>
#include <memory>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class VoiceControllerThreadsTest : public testing::Test {
protected:
    /// Runs the event loop until the condition holds.
    void runUntil(const std::function<bool()>& condition) {
        bool patienceIsOver = false;
        const auto watchdog =
            platform_->mainQueue->startTimer(60s, [&patienceIsOver] { patienceIsOver = true; });
        while (!condition() && !patienceIsOver) {
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
        ASSERT_FALSE(patienceIsOver);
    }
    /// Until everything that was posted before has run.
    void drain() {
        bool drained = false;
        platform_->mainQueue->post([&drained] { drained = true; });
        runUntil([&drained] { return drained; });
    }
    std::unique_ptr<VoiceController> makeController() {
        auto controller = std::make_unique<VoiceController>(*platform_);
        QObject::connect(controller.get(), &VoiceController::audioLevelChanged, controller.get(),
                         [this] { ++levels_; });
        QObject::connect(controller.get(), &VoiceController::lastTranscriptChanged, controller.get(),
                         [this] { ++transcripts_; });
        QObject::connect(
            controller.get(), &VoiceController::statusMessageChanged, controller.get(),
            [this, &shown = *controller] { executions_ += shown.statusMessage().startsWith(u'✓') ? 1 : 0; });
        return controller;
    }

    int argumentCount_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication application_{argumentCount_, arguments_.data()};
    ThreadedCounts counts_;
    std::unique_ptr<Platform> platform_ = makeThreadedPlatform(Hearing::CommandErrorTalk, counts_);
    int levels_ = 0;
    int transcripts_ = 0;
    int executions_ = 0;
};

TEST_F(VoiceControllerThreadsTest, SwitchedOffTenThousandTimesWhileSoundArrives_HearsNothingMore) {
    // A session that has restarted may have something left to say; one that is switched off has not.
    platform_ = makeThreadedPlatform(Hearing::Talk, counts_);
    const auto controller = makeController();
    for (int cycle = 0; cycle < 10'000; ++cycle) {
        controller->setIsListening(true);
        const int levelsBefore = levels_;
        runUntil([&] { return levels_ > levelsBefore + cycle % 7; });
        controller->setIsListening(false);
        const int blocks = counts_.blocks;
        const int levels = levels_;
        const int transcripts = transcripts_;
        drain();
        ASSERT_EQ(counts_.blocks, blocks) << "cycle " << cycle;
        ASSERT_EQ(levels_, levels) << "cycle " << cycle;
        ASSERT_EQ(transcripts_, transcripts) << "cycle " << cycle;
        ASSERT_EQ(controller->audioLevel(), 0) << "cycle " << cycle;
    }
    EXPECT_GT(transcripts_, 0) << "nothing was heard that could have come late";
}

TEST_F(VoiceControllerThreadsTest, CommandsErrorsAndDevicesRestartIt_EachCommandIsCarriedOutOnce) {
    const auto controller = makeController();
    int commands = 0;
    QObject::connect(controller.get(), &VoiceController::willAct, controller.get(), [&] { ++commands; });
    controller->setIsListening(true);
    // A command, an error and a session of talk that the choice of another input ends, twice.
    for (int round = 1; round <= 2; ++round) {
        runUntil([&] { return counts_.sessions == 3 * round; });
        EXPECT_EQ(commands, round);
        const int transcripts = transcripts_;
        runUntil([&] { return transcripts_ > transcripts + 5; });
        controller->setSelectedAudioDevice(QStringLiteral("round %1").arg(round));
    }
    runUntil([&] { return commands == 3; });
    controller->setIsListening(false);
    runUntil([&] { return executions_ == 3; });
    EXPECT_EQ(counts_.scripts, 3);
    EXPECT_EQ(controller->commandHistory().size(), 3);
}

TEST_F(VoiceControllerThreadsTest, DestroyedInTheMiddle_LeavesNothingThatTouchesIt) {
    for (int cycle = 0; cycle < 1000; ++cycle) {
        auto controller = makeController();
        controller->setIsListening(true);
        const int blocks = counts_.blocks;
        runUntil([&] { return counts_.blocks > blocks + cycle % 5; });
        controller.reset();
        if (cycle % 2 == 0) {
            drain();
        }
        // The engine and its tap end with the platform.
        platform_.reset();
        platform_ = makeThreadedPlatform(Hearing::CommandErrorTalk, counts_);
    }
}

} // namespace
} // namespace brivandel
