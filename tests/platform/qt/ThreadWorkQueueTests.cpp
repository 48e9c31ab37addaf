#include "platform/qt/ThreadWorkQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <memory>
#include <optional>
#include <semaphore>
#include <vector>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

} // namespace

TEST(ThreadWorkQueue, Work_RunsOffTheCallingThread) {
    ThreadWorkQueue queue;
    std::binary_semaphore done(0);
    std::thread::id worker;
    queue.run([&] {
        worker = std::this_thread::get_id();
        done.release();
    });
    ASSERT_TRUE(done.try_acquire_for(10s));
    EXPECT_NE(worker, std::this_thread::get_id());
}

TEST(ThreadWorkQueue, SlowPieces_HoldUpNoOther) {
    std::latch release(1);
    std::counting_semaphore<> started(0);
    std::binary_semaphore done(0);
    ThreadWorkQueue queue; // ends first, and with it the last piece that looks at the others
    for (int i = 0; i < 8; ++i) {
        queue.run([&] {
            started.release();
            release.wait();
        });
    }
    for (int i = 0; i < 8; ++i) {
        ASSERT_TRUE(started.try_acquire_for(10s));
    }
    queue.run([&] { done.release(); });
    EXPECT_TRUE(done.try_acquire_for(10s));
    release.count_down();
}

TEST(ThreadWorkQueue, FourThreadsRunManyPieces_EachRunsOnce) {
    constexpr int piecesPerThread = 2500;
    std::atomic<int> count = 0;
    std::counting_semaphore<> done(0);
    ThreadWorkQueue queue;
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int i = 0; i < piecesPerThread; ++i) {
                queue.run([&] {
                    ++count;
                    done.release();
                });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int i = 0; i < 4 * piecesPerThread; ++i) {
        ASSERT_TRUE(done.try_acquire_for(10s));
    }
    EXPECT_EQ(count, 4 * piecesPerThread);
}

TEST(ThreadWorkQueue, Destroyed_WaitsForWhatRunsAndFreesWhatWaits) {
    const auto token = std::make_shared<int>(0);
    std::atomic<int> finished = 0;
    std::counting_semaphore<> started(0);
    std::latch release(1);
    std::optional<ThreadWorkQueue> queue(std::in_place);
    for (std::size_t i = 0; i < ThreadWorkQueue::maximumThreadCount; ++i) {
        queue->run([&] {
            started.release();
            release.wait();
            ++finished;
        });
    }
    for (std::size_t i = 0; i < ThreadWorkQueue::maximumThreadCount; ++i) {
        ASSERT_TRUE(started.try_acquire_for(10s));
    }
    queue->run([token] { ++*token; });
    // A destructor that waits for all of them cannot end before the last has been let go.
    std::thread letGo([&] { release.count_down(); });
    queue.reset();
    letGo.join();
    EXPECT_EQ(finished, static_cast<int>(ThreadWorkQueue::maximumThreadCount));
    EXPECT_EQ(token.use_count(), 1);
}

} // namespace brivandel
