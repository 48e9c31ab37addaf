#include "platform/qt/TaskInbox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace brivandel {

namespace {

std::vector<int> run(TaskInbox& inbox, std::vector<int>& ran) {
    TaskInbox::Batch batch;
    inbox.takeAll(batch);
    while (!batch.isEmpty()) {
        batch.takeFirst()();
    }
    return ran;
}

} // namespace

TEST(TaskInbox, PutIntoEmptyInbox_TellsSo) {
    TaskInbox inbox;
    EXPECT_TRUE(inbox.put([] {}));
    EXPECT_FALSE(inbox.put([] {}));
    TaskInbox::Batch batch;
    inbox.takeAll(batch);
    EXPECT_EQ(batch.count(), 2U);
    EXPECT_TRUE(inbox.put([] {}));
}

TEST(TaskInbox, TakenTasks_AreInTheOrderOfPutting) {
    TaskInbox inbox;
    std::vector<int> ran;
    for (int i = 1; i <= 4; ++i) {
        std::ignore = inbox.put([&ran, i] { ran.push_back(i); });
    }
    EXPECT_THAT(run(inbox, ran), testing::ElementsAre(1, 2, 3, 4));
}

TEST(TaskInbox, SecondTaking_IsAppended) {
    TaskInbox inbox;
    TaskInbox::Batch batch;
    std::vector<int> ran;
    for (int i = 1; i <= 4; ++i) {
        std::ignore = inbox.put([&ran, i] { ran.push_back(i); });
        if (i % 2 == 0) {
            inbox.takeAll(batch);
        }
    }
    inbox.takeAll(batch);
    EXPECT_EQ(batch.count(), 4U);
    while (!batch.isEmpty()) {
        batch.takeFirst()();
    }
    EXPECT_THAT(ran, testing::ElementsAre(1, 2, 3, 4));
}

TEST(TaskInbox, DestroyedWithTasks_FreesThemWithoutRunning) {
    const auto token = std::make_shared<int>(0);
    {
        TaskInbox inbox;
        TaskInbox::Batch batch;
        std::ignore = inbox.put([token] { ++*token; });
        inbox.takeAll(batch);
        std::ignore = inbox.put([token] { ++*token; });
        EXPECT_EQ(token.use_count(), 3);
    }
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_EQ(*token, 0);
}

} // namespace brivandel
