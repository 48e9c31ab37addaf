#include "platform/linux/audio/BlockSplitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace brivandel {

namespace {

using testing::ElementsAre;

struct Block {
    double sampleRateHz;
    std::vector<std::vector<float>> channels;
};

class BlockSplitterTest : public testing::Test {
protected:
    BlockSplitter splitter(std::uint32_t channelCount, std::uint32_t blockFrames) {
        return {48000, channelCount, blockFrames, [this](const AudioBuffer& buffer) {
                    Block block{buffer.sampleRateHz, {}};
                    for (const float* samples : buffer.channels) {
                        block.channels.emplace_back(samples, samples + buffer.frameLength);
                    }
                    blocks_.push_back(block);
                }};
    }

    std::vector<Block> blocks_;
};

} // namespace

TEST_F(BlockSplitterTest, OneFrameLessThanABlock_DeliversNothing) {
    auto splitter = this->splitter(1, 4);
    const std::vector<float> samples{1, 2, 3};
    splitter.push(samples.data(), 3);
    EXPECT_TRUE(blocks_.empty());
}

TEST_F(BlockSplitterTest, PiecesOfOddSizes_BecomeBlocksInOrder) {
    auto splitter = this->splitter(1, 4);
    std::vector<float> samples(11);
    std::iota(samples.begin(), samples.end(), 1.0F);
    splitter.push(samples.data(), 3);
    splitter.push(samples.data() + 3, 7);
    splitter.push(samples.data() + 10, 1);
    ASSERT_EQ(blocks_.size(), 2U);
    EXPECT_THAT(blocks_[0].channels[0], ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(blocks_[1].channels[0], ElementsAre(5, 6, 7, 8));
    EXPECT_EQ(blocks_[0].sampleRateHz, 48000);
}

TEST_F(BlockSplitterTest, InterleavedChannels_AreTakenApart) {
    auto splitter = this->splitter(3, 2);
    const std::vector<float> samples{1, 2, 3, 4, 5, 6};
    splitter.push(samples.data(), 1);
    splitter.push(samples.data() + 3, 1);
    ASSERT_EQ(blocks_.size(), 1U);
    EXPECT_THAT(blocks_[0].channels, ElementsAre(ElementsAre(1, 4), ElementsAre(2, 5), ElementsAre(3, 6)));
}

TEST_F(BlockSplitterTest, LostSound_IsSilenceOfTheSameLength) {
    auto splitter = this->splitter(2, 3);
    const std::vector<float> samples{1, 2};
    splitter.push(samples.data(), 1);
    splitter.pushSilence(1);
    splitter.push(samples.data(), 1);
    ASSERT_EQ(blocks_.size(), 1U);
    EXPECT_THAT(blocks_[0].channels, ElementsAre(ElementsAre(1, 0, 1), ElementsAre(2, 0, 2)));
}

TEST_F(BlockSplitterTest, Reset_ForgetsTheFramesThatWait) {
    auto splitter = this->splitter(1, 2);
    const std::vector<float> samples{1, 2, 3};
    splitter.push(samples.data(), 1);
    splitter.reset();
    splitter.push(samples.data() + 1, 2);
    ASSERT_EQ(blocks_.size(), 1U);
    EXPECT_THAT(blocks_[0].channels[0], ElementsAre(2, 3));
}

} // namespace brivandel
