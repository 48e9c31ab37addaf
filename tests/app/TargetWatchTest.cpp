#include "app/TargetWatch.h"

#include "platform/Targets.h"
#include "platform/WorkQueue.h"
#include "platform/scripted/VirtualMainQueue.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

/// Work is done when the test says so.
class HeldWorkQueue final : public WorkQueue {
public:
    void run(std::function<void()> work) override { held.push_back(std::move(work)); }
    void doAll() {
        for (const auto& work : std::exchange(held, {})) {
            work();
        }
    }
    std::vector<std::function<void()>> held;
};

/// Answers what the test says.
class SettledInquiry final : public TargetInquiry {
public:
    [[nodiscard]] QString inWords() const override { return sentence; }
    QString sentence;
};

class TargetWatchTest : public testing::Test {
protected:
    TargetWatchTest() { watch_.emplace(mainQueue_, workQueue_, target_); }

    void answer(const QString& sentence) {
        target_.sentence = sentence;
        workQueue_.doAll();
        mainQueue_.runDue();
    }

    VirtualMainQueue mainQueue_;
    HeldWorkQueue workQueue_;
    SettledInquiry target_;
    std::optional<TargetWatch> watch_;
};

TEST_F(TargetWatchTest, Begun_AsksOffTheMainThreadAndTellsTheAnswer) {
    const QSignalSpy changed(&*watch_, &TargetWatch::changed);
    watch_->begin();
    EXPECT_EQ(watch_->sentence(), QString());
    answer(QStringLiteral("Commands go to Ardour."));
    EXPECT_EQ(watch_->sentence(), QStringLiteral("Commands go to Ardour."));
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(TargetWatchTest, Answered_AsksAgainAfterTheIntervalAndNotBefore) {
    const QSignalSpy changed(&*watch_, &TargetWatch::changed);
    watch_->begin();
    answer(QStringLiteral("Commands go to Ardour."));
    mainQueue_.advance(TargetWatch::interval - 1ms);
    EXPECT_TRUE(workQueue_.held.empty());
    mainQueue_.advance(1ms);
    ASSERT_EQ(workQueue_.held.size(), 1U);
    answer(QStringLiteral("Commands go to Ardour."));
    EXPECT_EQ(changed.size(), 1);
    mainQueue_.advance(TargetWatch::interval);
    answer(QStringLiteral("Commands go to Qtractor."));
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(TargetWatchTest, NotAnswered_AsksNobodyElse) {
    watch_->begin();
    mainQueue_.advance(10 * TargetWatch::interval);
    EXPECT_EQ(workQueue_.held.size(), 1U);
}

TEST_F(TargetWatchTest, AnswerAfterTheEnd_IsNobodys) {
    watch_->begin();
    watch_.reset();
    answer(QStringLiteral("Commands go to Ardour."));
    EXPECT_TRUE(workQueue_.held.empty());
}

} // namespace
} // namespace brivandel
