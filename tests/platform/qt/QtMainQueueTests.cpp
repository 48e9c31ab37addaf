#include "platform/qt/QtMainQueue.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

namespace brivandel {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

} // namespace

class QtMainQueueTest : public testing::Test {
protected:
    /// Runs the event loop until quit() is called by a task; fails the test when that does not happen.
    void runLoop() {
        QEventLoop loop;
        const auto watchdog = queue_->startTimer(20s, [&] {
            ADD_FAILURE() << "nothing ended the event loop";
            loop.quit();
        });
        loop_ = &loop;
        loop.exec();
        loop_ = nullptr;
    }
    void quit() { loop_->quit(); }

    int argumentCount_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication application_{argumentCount_, arguments_.data()};
    std::optional<QtMainQueue> queue_{std::in_place};
    QEventLoop* loop_ = nullptr;
};

TEST_F(QtMainQueueTest, Posted_RunsLaterAndInOrder) {
    std::vector<int> ran;
    for (int i = 1; i <= 3; ++i) {
        queue_->post([&ran, i] { ran.push_back(i); });
    }
    queue_->post([this] { quit(); });
    EXPECT_TRUE(ran.empty());
    runLoop();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(QtMainQueueTest, PostedFromATask_RunsInALaterTurn) {
    std::vector<int> ran;
    queue_->post([&] {
        ran.push_back(1);
        queue_->post([&] {
            ran.push_back(3);
            quit();
        });
    });
    queue_->post([&] { ran.push_back(2); });
    application_.processEvents();
    EXPECT_THAT(ran, ElementsAre(1, 2));
    runLoop();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(QtMainQueueTest, TaskRunsALoopOfItsOwn_TasksAfterItRunInThere) {
    std::vector<int> ran;
    queue_->post([&] {
        ran.push_back(1);
        QEventLoop dialog;
        queue_->post([&] {
            ran.push_back(3);
            dialog.quit();
        });
        dialog.exec();
        ran.push_back(4);
        quit();
    });
    queue_->post([&] { ran.push_back(2); });
    runLoop();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3, 4));
}

TEST_F(QtMainQueueTest, FourThreadsPost_EveryTaskRunsOnceAndInItsThreadsOrder) {
    constexpr std::size_t threadCount = 4;
    constexpr int postsPerThread = 2500;
    std::array<std::vector<int>, threadCount> ran;
    std::size_t left = threadCount * postsPerThread;
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([this, &ran, &left, thread] {
            for (int i = 0; i < postsPerThread; ++i) {
                queue_->post([this, &ran, &left, thread, i] {
                    ran[thread].push_back(i);
                    if (--left == 0) {
                        quit();
                    }
                });
            }
        });
    }
    runLoop();
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const auto& numbers : ran) {
        ASSERT_EQ(numbers.size(), static_cast<std::size_t>(postsPerThread));
        EXPECT_TRUE(std::ranges::is_sorted(numbers));
    }
}

TEST_F(QtMainQueueTest, Destroyed_DropsWhatWaitsWithoutRunning) {
    const auto token = std::make_shared<int>(0);
    queue_->post([token] { ++*token; });
    queue_->postAfter(0ms, [token] { ++*token; });
    EXPECT_EQ(token.use_count(), 3);
    queue_.reset();
    EXPECT_EQ(token.use_count(), 1);
    application_.processEvents();
    EXPECT_EQ(*token, 0);
}

TEST_F(QtMainQueueTest, PostAfter_RunsNotBeforeItsTimeAndFreesTheTask) {
    const auto token = std::make_shared<int>(0);
    const auto start = queue_->now();
    queue_->postAfter(30ms, [this, token] { quit(); });
    runLoop();
    EXPECT_GE(queue_->now() - start, 30ms);
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(QtMainQueueTest, PostAfter_ShorterDelayRunsFirst) {
    std::vector<int> ran;
    queue_->postAfter(30ms, [&] {
        ran.push_back(2);
        quit();
    });
    queue_->postAfter(5ms, [&] { ran.push_back(1); });
    runLoop();
    EXPECT_THAT(ran, ElementsAre(1, 2));
}

TEST_F(QtMainQueueTest, TimerInvalidatedOrDestroyed_DoesNotFire) {
    bool hasFired = false;
    const auto invalidated = queue_->startTimer(1ms, [&] { hasFired = true; });
    auto destroyed = queue_->startTimer(1ms, [&] { hasFired = true; });
    const auto fires = queue_->startTimer(20ms, [&] { quit(); });
    invalidated->invalidate();
    invalidated->invalidate();
    destroyed.reset();
    runLoop();
    EXPECT_FALSE(hasFired);
}

TEST_F(QtMainQueueTest, TimerReplacedByItsOwnTask_IsSafe) {
    int count = 0;
    std::unique_ptr<Timer> timer;
    std::function<void()> again = [&] {
        if (++count == 3) {
            quit();
        } else {
            timer = queue_->startTimer(1ms, again);
        }
    };
    timer = queue_->startTimer(1ms, again);
    runLoop();
    EXPECT_EQ(count, 3);
}

TEST_F(QtMainQueueTest, VeryLongDelay_NeitherOverflowsNorFires) {
    bool hasFired = false;
    const auto days = queue_->startTimer(24h * 60, [&] { hasFired = true; });
    const auto longest = queue_->startTimer(std::chrono::milliseconds::max(), [&] { hasFired = true; });
    queue_->postAfter(20ms, [this] { quit(); });
    runLoop();
    EXPECT_FALSE(hasFired);
}

TEST_F(QtMainQueueTest, NegativeDelay_RunsInALaterTurn) {
    bool hasRun = false;
    queue_->postAfter(-5ms, [&] {
        hasRun = true;
        quit();
    });
    EXPECT_FALSE(hasRun);
    runLoop();
    EXPECT_TRUE(hasRun);
}

} // namespace brivandel
