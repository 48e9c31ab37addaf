#include "commands/CommandCategory.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(CommandCategory, AllCases_AreInTheirOrder) {
    QStringList titles;
    for (const CommandCategory category : allCommandCategories) {
        titles += rawValue(category);
    }
    EXPECT_EQ(titles, QStringList({QStringLiteral("Transport"), QStringLiteral("Recording"),
                                   QStringLiteral("Editing"), QStringLiteral("Looping"),
                                   QStringLiteral("Metronome"), QStringLiteral("Navigation")}));
}

TEST(CommandCategory, RawValue_MatchesExactly) {
    for (const CommandCategory category : allCommandCategories) {
        EXPECT_EQ(commandCategory(rawValue(category)), category);
    }
    EXPECT_EQ(commandCategory(u"transport"), std::nullopt);
    EXPECT_EQ(commandCategory(u"Transport "), std::nullopt);
    EXPECT_EQ(commandCategory(u""), std::nullopt);
}

TEST(CommandCategory, CommandCount_CountsTheBarFormsAsNavigation) {
    std::vector<int> counts;
    for (const CommandCategory category : allCommandCategories) {
        counts.push_back(commandCount(category));
    }
    EXPECT_THAT(counts, testing::ElementsAre(7, 3, 5, 3, 2, 2));
}

} // namespace
} // namespace brivandel
