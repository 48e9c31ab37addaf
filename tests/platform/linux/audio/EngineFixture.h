#pragma once

#include "platform/linux/audio/BlockCollector.h"
#include "platform/linux/audio/PulseAudioDevices.h"
#include "platform/linux/audio/PulseAudioEngine.h"
#include "platform/linux/audio/ServerControl.h"
#include "platform/linux/audio/TonePlayer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel {

/// An engine on the server of script/with-audio-server, with a tap that collects.
class EngineFixture : public testing::Test {
protected:
    static constexpr std::uint32_t blockFrames = 1024;
    /// PulseAudio's null sink wakes every 2 seconds until someone listens.
    static constexpr std::chrono::seconds patience{10};

    void SetUp() override { ASSERT_TRUE(context_.server().isConnected); }

    void choose(const QString& uid) {
        const auto device = devices_.deviceIDForUID(uid);
        ASSERT_TRUE(device) << uid.toStdString();
        ASSERT_EQ(engine_.setInputDevice(*device), 0);
    }

    void installTap() { engine_.installTap(blockFrames, engine_.inputFormat(), blocks_.tap()); }

    /// Starts and waits until sound arrives; the blocks that came then.
    std::vector<BlockCollector::Block> startAndCollect(std::size_t count) {
        const auto problem = engine_.start();
        EXPECT_EQ(problem, std::nullopt) << problem.value_or(QString()).toStdString();
        auto blocks = blocks_.next(count, patience);
        EXPECT_GE(blocks.size(), count) << "captured too little in time";
        return blocks;
    }

    /// Whether the tone is in the channel of what is captured, within the patience: it takes a while to get
    /// through.
    testing::AssertionResult hears(double frequencyHz, std::size_t channel = 0) {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        double amplitude = 0;
        do {
            const auto blocks = blocks_.next(12, patience);
            if (blocks.size() < 12) {
                return testing::AssertionFailure() << "no sound arrives";
            }
            amplitude = toneAmplitude(channelOf(blocks, channel), frequencyHz, blocks.front().sampleRateHz);
            if (amplitude > 0.8 * TonePlayer::amplitude) {
                return testing::AssertionSuccess();
            }
        } while (std::chrono::steady_clock::now() < deadline);
        return testing::AssertionFailure()
               << "the tone of " << frequencyHz << " Hz came with amplitude " << amplitude;
    }

    PulseAudioContext context_;
    PulseAudioDevices devices_{context_};
    BlockCollector blocks_;
    PulseAudioEngine engine_{context_};
};

} // namespace brivandel
