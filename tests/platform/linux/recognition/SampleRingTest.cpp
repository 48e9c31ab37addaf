#include "platform/linux/recognition/SampleRing.h"

#include <gmock/gmock.h>

#include <numeric>
#include <thread>

namespace brivandel {
namespace {

float counting(std::size_t i) {
    return static_cast<float>(i);
}

TEST(SampleRing, Empty_ReadsNothing) {
    SampleRing ring(8);
    std::vector<float> out = {1};
    ring.read(out, 8);
    EXPECT_TRUE(out.empty());
}

TEST(SampleRing, WrittenSamples_AreReadInOrder) {
    SampleRing ring(8);
    ASSERT_TRUE(ring.write(3, counting));
    std::vector<float> out;
    ring.read(out, 2);
    EXPECT_THAT(out, testing::ElementsAre(0, 1));
    ring.read(out, 2);
    EXPECT_THAT(out, testing::ElementsAre(2));
}

TEST(SampleRing, BlockThatDoesNotFit_IsRefusedAsAWhole) {
    SampleRing ring(8);
    ASSERT_TRUE(ring.write(5, counting));
    EXPECT_FALSE(ring.write(4, counting));
    EXPECT_TRUE(ring.write(3, counting)) << "exactly full";
    std::vector<float> out;
    ring.read(out, 100);
    EXPECT_THAT(out, testing::ElementsAre(0, 1, 2, 3, 4, 0, 1, 2));
}

TEST(SampleRing, WrittenAndReadAtOnce_LosesAndInventsNothing) {
    constexpr std::size_t total = 200000;
    SampleRing ring(64);
    std::thread writer([&ring] {
        for (std::size_t written = 0; written < total;) {
            const std::size_t count = std::min<std::size_t>(1 + written % 40, total - written);
            if (ring.write(count,
                           [written](std::size_t i) { return static_cast<float>((written + i) % 1000); })) {
                written += count;
            } else {
                std::this_thread::yield();
            }
        }
    });
    std::vector<float> out;
    std::size_t wrong = 0;
    for (std::size_t read = 0; read < total;) {
        ring.read(out, 50);
        for (const float sample : out) {
            wrong += sample == static_cast<float>(read++ % 1000) ? 0U : 1U;
        }
        if (out.empty()) {
            std::this_thread::yield();
        }
    }
    writer.join();
    EXPECT_EQ(wrong, 0U);
}

} // namespace
} // namespace brivandel
