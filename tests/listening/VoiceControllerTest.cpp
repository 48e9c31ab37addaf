#include "listening/VoiceController.h"

#include "listening/WatchedPlatform.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class VoiceControllerTest : public testing::Test {
protected:
    VoiceControllerTest() { watched_.mainQueue().runDue(); }

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

} // namespace
} // namespace brivandel
