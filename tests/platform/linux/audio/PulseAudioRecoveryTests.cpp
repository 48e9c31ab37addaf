#include "platform/linux/audio/EngineFixture.h"

namespace brivandel {

namespace {

using namespace std::chrono_literals;

} // namespace

/// Devices and servers that go and come back.
class PulseAudioRecoveryTest : public EngineFixture {
protected:
    ContextWatch watch_{context_};
};

TEST_F(PulseAudioRecoveryTest, ChosenDeviceUnplugged_HearsNothingUntilItIsBackAndStarted) {
    const QString uid = QStringLiteral("usb");
    const auto isThere = [&](const AudioServer& server) { return server.sourceWithUid(uid) != nullptr; };
    const TonePlayer tone(QStringLiteral("feed"), monoMap(), 48000, {440});
    QString module = plugInMicrophone(uid, QStringLiteral("feed.monitor"));
    ASSERT_TRUE(watch_.waitUntil(isThere));
    choose(uid);
    installTap();
    startAndCollect(2);

    unplug(module);
    ASSERT_TRUE(watch_.waitUntil(std::not_fn(isThere)));
    // Another microphone would be heard within a block or two.
    EXPECT_EQ(blocks_.next(1, 500ms).size(), 0U);
    const auto problem = engine_.start();
    ASSERT_TRUE(problem);
    EXPECT_THAT(problem->toStdString(), testing::HasSubstr("Plugged_usb"));
    EXPECT_EQ(engine_.inputFormat().channelCount, 0U);

    module = plugInMicrophone(uid, QStringLiteral("feed.monitor"));
    ASSERT_TRUE(watch_.waitUntil(isThere));
    EXPECT_EQ(blocks_.count(), 0U);
    startAndCollect(2);
    EXPECT_TRUE(hears(440));
    unplug(module);
}

TEST_F(PulseAudioRecoveryTest, DefaultChangesWhileRunning_IsFollowed) {
    const TonePlayer low(QStringLiteral("feed"), monoMap(), 48000, {440});
    const TonePlayer high(QStringLiteral("feed6"), surroundMap(), 48000, {1700, 0, 0, 0, 0, 0});
    installTap();
    startAndCollect(2);
    EXPECT_TRUE(hears(440));

    pactl({QStringLiteral("set-default-source"), QStringLiteral("vmic6")});
    EXPECT_TRUE(watch_.waitUntil(
        [](const AudioServer& server) { return server.defaultSourceUid == QStringLiteral("vmic6"); }));
    EXPECT_TRUE(hears(1700));
    EXPECT_EQ(engine_.inputFormat().channelCount, 6U);

    pactl({QStringLiteral("set-default-source"), QStringLiteral("vmic")});
    EXPECT_TRUE(watch_.waitUntil(
        [](const AudioServer& server) { return server.defaultSourceUid == QStringLiteral("vmic"); }));
    EXPECT_TRUE(hears(440));
}

TEST_F(PulseAudioRecoveryTest, DefaultChangesWhileADeviceIsChosen_IsNotFollowed) {
    const TonePlayer low(QStringLiteral("feed"), monoMap(), 48000, {440});
    choose(QStringLiteral("vmic"));
    installTap();
    startAndCollect(2);
    pactl({QStringLiteral("set-default-source"), QStringLiteral("vmic6")});
    EXPECT_TRUE(watch_.waitUntil(
        [](const AudioServer& server) { return server.defaultSourceUid == QStringLiteral("vmic6"); }));
    EXPECT_TRUE(hears(440));
    EXPECT_EQ(engine_.inputFormat().channelCount, 1U);
    pactl({QStringLiteral("set-default-source"), QStringLiteral("vmic")});
    EXPECT_TRUE(watch_.waitUntil(
        [](const AudioServer& server) { return server.defaultSourceUid == QStringLiteral("vmic"); }));
}

TEST_F(PulseAudioRecoveryTest, ServerHangs_CallsReturnAtOnceAndTheStreamThatRanDryIsReplaced) {
    installTap();
    startAndCollect(2);
    const QString before = recordingOfThisProgram();
    EXPECT_EQ(engine_.start(), std::nullopt);
    EXPECT_EQ(recordingOfThisProgram(), before);

    freezeServer();
    std::ignore = blocks_.next(10'000, CaptureStream::laterSoundPatience + 200ms);
    const auto start = std::chrono::steady_clock::now();
    engine_.stop();
    EXPECT_EQ(engine_.inputFormat().channelCount, 1U);
    EXPECT_EQ(engine_.start(), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 100ms);
    thawServer();
    EXPECT_EQ(blocks_.next(2, patience).size(), 2U);
    EXPECT_NE(recordingOfThisProgram(), before);
}

TEST_F(PulseAudioRecoveryTest, ServerKilledAndBack_ContextReconnectsAndStartWorks) {
    installTap();
    startAndCollect(2);

    stopServer();
    ASSERT_TRUE(watch_.waitUntil([](const AudioServer& server) { return !server.isConnected; }));
    EXPECT_EQ(blocks_.next(1, 200ms).size(), 0U);
    const auto before = std::chrono::steady_clock::now();
    const auto problem = engine_.start();
    EXPECT_LT(std::chrono::steady_clock::now() - before, 100ms);
    ASSERT_TRUE(problem);
    EXPECT_THAT(problem->toStdString(), testing::StartsWith("No sound server (PulseAudio or PipeWire): "));
    EXPECT_EQ(engine_.inputFormat().channelCount, 0U);
    EXPECT_TRUE(devices_.inputDevices().isEmpty());

    startServer();
    ASSERT_TRUE(watch_.waitUntil([](const AudioServer& server) {
        return server.defaultSourceUid == QStringLiteral("vmic") && server.defaultMicrophone() != nullptr;
    }));
    const TonePlayer tone(QStringLiteral("feed"), monoMap(), 48000, {440});
    startAndCollect(2);
    EXPECT_TRUE(hears(440));
}

TEST_F(PulseAudioRecoveryTest, ServerKilledTwentyTimes_IsHeardAgainEachTime) {
    installTap();
    for (int kill = 1; kill <= 20; ++kill) {
        stopServer();
        ASSERT_TRUE(watch_.waitUntil([](const AudioServer& server) { return !server.isConnected; })) << kill;
        startServer();
        ASSERT_TRUE(watch_.waitUntil([](const AudioServer& server) {
            return server.defaultSourceUid == QStringLiteral("vmic") && server.defaultMicrophone() != nullptr;
        })) << kill;
        startAndCollect(2);
        ASSERT_FALSE(HasFailure()) << kill;
    }
}

} // namespace brivandel
