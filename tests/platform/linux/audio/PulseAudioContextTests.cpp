#include "platform/linux/audio/PulseAudioContext.h"
#include "platform/linux/audio/ServerControl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel {

TEST(PulseAudioContext, FirstQuestion_WaitsForTheServer) {
    PulseAudioContext context;
    const AudioServer server = context.server();
    EXPECT_TRUE(server.isConnected);
    EXPECT_EQ(server.defaultSourceUid, QStringLiteral("vmic"));
    EXPECT_TRUE(server.name.contains(QStringLiteral("pulseaudio"), Qt::CaseInsensitive))
        << server.name.toStdString();
    EXPECT_TRUE(server.hasMicrophone());
}

TEST(PulseAudioContext, Sources_TellTheirOwnRateAndChannels) {
    PulseAudioContext context;
    const AudioServer server = context.server();
    const AudioSource* six = server.sourceWithUid(QStringLiteral("vmic6"));
    ASSERT_NE(six, nullptr);
    EXPECT_EQ(six->format(), (AudioFormat{.sampleRateHz = 48000, .channelCount = 6}));
    const AudioSource* monitor = server.sourceWithUid(QStringLiteral("feed2.monitor"));
    ASSERT_NE(monitor, nullptr);
    EXPECT_TRUE(monitor->isMonitor);
    EXPECT_EQ(monitor->format(), (AudioFormat{.sampleRateHz = 44100, .channelCount = 2}));
}

TEST(PulseAudioContext, NoServerAtThatAddress_SaysWhyAtOnce) {
    const QByteArray address = qgetenv("PULSE_SERVER");
    qputenv("PULSE_SERVER", "unix:/nonexistent/native");
    PulseAudioContext context;
    const AudioServer server = context.server();
    qputenv("PULSE_SERVER", address);
    EXPECT_FALSE(server.isConnected);
    EXPECT_FALSE(server.problem.isEmpty());
    EXPECT_FALSE(server.hasMicrophone());
}

TEST(PulseAudioContext, DefaultThatIsAMonitor_IsNoMicrophone) {
    AudioServer server;
    AudioSource monitor;
    monitor.uid = QStringLiteral("speakers.monitor");
    monitor.isMonitor = true;
    server.sources = {monitor};
    server.defaultSourceUid = monitor.uid;
    EXPECT_EQ(server.defaultMicrophone(), nullptr);
    EXPECT_FALSE(server.hasMicrophone());
}

} // namespace brivandel
