#include "AdapterTest.h"
#include "platform/macos/CaptureEnd.h"
#include "platform/macos/MacServices.h"
#include "platform/scripted/VirtualMainQueue.h"

#include <vector>

namespace brivandel {

namespace {

class AudioTest : public AdapterTest {
protected:
    struct Block {
        double sampleRateHz;
        std::vector<std::vector<float>> channels;
        std::uint32_t frameLength;
    };

    void installTap() {
        engine->installTap(1024, engine->inputFormat(), [this](const AudioBuffer& buffer) {
            Block block{buffer.sampleRateHz, {}, buffer.frameLength};
            for (const float* channel : buffer.channels) {
                block.channels.emplace_back(channel, channel + buffer.frameLength);
            }
            blocks.push_back(block);
        });
    }

    VirtualMainQueue mainQueue;
    std::unique_ptr<AudioEngine> engine = makeMacAudioEngine(mainQueue, std::make_shared<CaptureEnd>());
    std::vector<Block> blocks;
};

TEST_F(AudioTest, InputFormat_IsTheInputs) {
    world().input = {44100, 6};
    const AudioFormat expected{44100, 6, linearPcmFormatID, 32};
    EXPECT_EQ(engine->inputFormat(), expected);
}

TEST_F(AudioTest, InputThatCannotBeAsked_HasNoChannels) {
    world().raised = QStringLiteral("no input");
    EXPECT_EQ(engine->inputFormat().channelCount, 0U);
}

TEST_F(AudioTest, Start_TapsPreparesAndStarts) {
    installTap();
    engine->prepare();
    EXPECT_FALSE(engine->start());
    EXPECT_EQ(calls(), QStringList({QStringLiteral("engine"), QStringLiteral("installTap 1024"),
                                    QStringLiteral("prepare"), QStringLiteral("start")}));
    EXPECT_FALSE(engine->start()) << "a running engine starts without an error";
    EXPECT_EQ(calls(), QStringList());
}

TEST_F(AudioTest, ProgramThatListens_DoesNotNapButLetsTheMachineSleep) {
    constexpr std::uint64_t userInitiated = 0xefffff; // all but the bit that keeps the machine awake
    EXPECT_EQ(standin::activity(), 0U);
    world().failingStarts = 1;
    installTap();
    EXPECT_TRUE(engine->start());
    EXPECT_EQ(standin::activity(), userInitiated) << "it goes on trying";
    EXPECT_FALSE(engine->start());
    EXPECT_EQ(standin::liveObjects("StandinActivity"), 1);
    engine->stop();
    EXPECT_EQ(standin::activity(), 0U);
}

TEST_F(AudioTest, EngineWithoutATap_Starts) {
    engine->prepare();
    EXPECT_FALSE(engine->start());
}

TEST_F(AudioTest, Channels_AllReachTheTap) {
    for (const std::uint32_t count : {1U, 2U, 6U}) {
        world().input = {48000, count};
        installTap();
        ASSERT_FALSE(engine->start());
        std::vector<std::vector<float>> sound;
        for (std::uint32_t channel = 0; channel < count; ++channel) {
            sound.push_back({0.25F, -0.5F, static_cast<float>(channel)});
        }
        standin::feed(sound);
        ASSERT_EQ(blocks.size(), 1U);
        EXPECT_EQ(blocks[0].channels, sound);
        EXPECT_EQ(blocks[0].sampleRateHz, 48000);
        blocks.clear();
        engine->stop();
        engine->removeTap();
    }
}

TEST_F(AudioTest, SoundInAnotherForm_ComesWithoutChannels) {
    installTap();
    ASSERT_FALSE(engine->start());
    standin::feedWithoutData(16);
    world().input = {48000, 2, true};
    standin::feed({{1}, {1}});
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_TRUE(blocks[0].channels.empty());
    EXPECT_EQ(blocks[0].frameLength, 16U);
    EXPECT_TRUE(blocks[1].channels.empty());
}

TEST_F(AudioTest, RemovedTap_HearsNothing) {
    installTap();
    ASSERT_FALSE(engine->start());
    engine->removeTap();
    standin::feed({{1}});
    EXPECT_TRUE(blocks.empty());
    calls();
    engine->removeTap();
    EXPECT_EQ(calls(), QStringList()) << "no tap is no error";
    installTap();
    standin::feed({{1}});
    EXPECT_EQ(blocks.size(), 1U);
}

TEST_F(AudioTest, SecondTap_ReplacesTheFirst) {
    installTap();
    installTap();
    ASSERT_FALSE(engine->start());
    standin::feed({{1}});
    EXPECT_EQ(blocks.size(), 1U);
}

TEST_F(AudioTest, FailingStart_TellsWhyAndMayBeTriedAgain) {
    world().failingStarts = 2;
    world().startError =
        QStringLiteral("The operation couldn’t be completed. (com.apple.coreaudio.avfaudio error -10868.)");
    installTap();
    EXPECT_EQ(engine->start(), world().startError);
    world().startError = QString();
    EXPECT_EQ(engine->start(), QStringLiteral("the audio engine gave no reason"));
    EXPECT_FALSE(engine->start());
    standin::feed({{1}});
    EXPECT_EQ(blocks.size(), 1U);
}

TEST_F(AudioTest, WhatIsRaised_IsAnErrorOfTheStart) {
    installTap();
    const QString reason = QStringLiteral("required condition is false: _engine->IsRunning()");
    world().raised = reason;
    EXPECT_EQ(engine->start(), reason);
    world().raised = QString(); // without a reason
    EXPECT_EQ(engine->start(), QStringLiteral("com.apple.coreaudio.avfaudio"));
    world().raised = QStringLiteral("prepare");
    engine->prepare();
    EXPECT_FALSE(world().raised);
    EXPECT_FALSE(engine->start());
}

TEST_F(AudioTest, TapThatCouldNotBeInstalled_IsInstalledByTheNextStart) {
    world().input = {0, 0};
    installTap();
    EXPECT_EQ(engine->start(), QStringLiteral("there is no sound input, or this program may not use it"));
    world().input = {48000, 1};
    EXPECT_FALSE(engine->start());
    standin::feed({{1}});
    EXPECT_EQ(blocks.size(), 1U);
}

TEST_F(AudioTest, TapThatWasRefused_IsInstalledByTheNextStart) {
    const AudioFormat format = engine->inputFormat();
    world().raised = QStringLiteral("unplugged");
    engine->installTap(1024, format, [](const AudioBuffer&) {});
    EXPECT_FALSE(engine->start());
    EXPECT_TRUE(calls().contains(QStringLiteral("installTap 1024")));
}

TEST_F(AudioTest, Device_IsSetOnTheInput) {
    EXPECT_EQ(engine->setInputDevice(73), 0);
    EXPECT_EQ(standin::currentDevice(), 73U);
    world().deviceStatus = -10851;
    EXPECT_EQ(engine->setInputDevice(74), -10851);
    EXPECT_EQ(standin::currentDevice(), 73U);
    world().hasAudioUnit = false;
    EXPECT_NE(engine->setInputDevice(75), 0);
}

TEST_F(AudioTest, DeviceInForce_IsNotSetAgain) {
    installTap();
    for (int session = 0; session < 3; ++session) {
        ASSERT_EQ(engine->setInputDevice(73), 0);
        ASSERT_FALSE(engine->start());
        engine->stop();
    }
    EXPECT_EQ(world().deviceSettings, 1);
    world().failingStarts = 1;
    EXPECT_TRUE(engine->start());
    ASSERT_EQ(engine->setInputDevice(73), 0);
    EXPECT_EQ(world().deviceSettings, 2) << "it may be another by the same number";
    engine->followDefaultInput();
    ASSERT_EQ(engine->setInputDevice(73), 0);
    EXPECT_EQ(standin::currentDevice(), 73U);
}

TEST_F(AudioTest, DeviceOfARunningEngine_IsSetOnceItHasStopped) {
    installTap();
    ASSERT_FALSE(engine->start());
    calls();
    ASSERT_EQ(engine->setInputDevice(73), 0);
    EXPECT_EQ(calls(), QStringList({QStringLiteral("stop"), QStringLiteral("device 73")}));
    EXPECT_NE(standin::activity(), 0U) << "listening is still wanted";
    ASSERT_FALSE(engine->start());
    standin::feed({{1}});
    EXPECT_EQ(blocks.size(), 1U);
    calls();
    ASSERT_EQ(engine->setInputDevice(73), 0);
    EXPECT_EQ(calls(), QStringList()) << "the device in force is no reason to stop";
}

TEST_F(AudioTest, DefaultInput_IsFollowedByANewEngine) {
    calls();
    engine->followDefaultInput();
    EXPECT_EQ(calls(), QStringList()) << "a new engine does so anyway";
    installTap();
    ASSERT_EQ(engine->setInputDevice(73), 0);
    ASSERT_FALSE(engine->start());
    calls();
    engine->followDefaultInput();
    EXPECT_EQ(calls(),
              QStringList({QStringLiteral("removeTap"), QStringLiteral("stop"), QStringLiteral("engine")}));
    EXPECT_EQ(standin::currentDevice(), 0U);
    ASSERT_FALSE(engine->start());
    standin::feed({{1}});
    EXPECT_EQ(blocks.size(), 1U) << "the tap came along";
}

TEST_F(AudioTest, EndOfTheEngine_StopsItAndItsTap) {
    installTap();
    ASSERT_FALSE(engine->start());
    calls();
    engine.reset();
    EXPECT_EQ(calls(), QStringList({QStringLiteral("removeTap"), QStringLiteral("stop")}));
    standin::feed({{1}});
    EXPECT_TRUE(blocks.empty());
}

TEST_F(AudioTest, Devices_AreListedInTheSystemsOrderAndFoundByUID) {
    world().devices = {{QStringLiteral("uid-2"), QStringLiteral("Interface"), 73},
                       {QStringLiteral("uid-é"), QStringLiteral("Built-in"), 41}};
    const auto devices = makeMacAudioDevices();
    const QList<AudioDevice> expected = {{QStringLiteral("uid-2"), QStringLiteral("Interface")},
                                         {QStringLiteral("uid-é"), QStringLiteral("Built-in")}};
    calls();
    EXPECT_EQ(devices->inputDevices(), expected);
    EXPECT_EQ(calls(), QStringList(QStringLiteral("discover Microphone+External soun 0")));
    EXPECT_EQ(devices->deviceIDForUID(QStringLiteral("uid-é")), 41U);
    EXPECT_FALSE(devices->deviceIDForUID(QStringLiteral("gone")));
}

} // namespace

} // namespace brivandel
