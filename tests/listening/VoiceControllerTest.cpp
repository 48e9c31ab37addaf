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
