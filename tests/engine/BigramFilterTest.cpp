#include "engine/BigramFilter.h"

#include <QString>

#include <gtest/gtest.h>

#include <random>

namespace brivandel {
namespace {

TEST(BigramFilter, PhraseInTheText_IsNeverRuledOut) {
    std::mt19937 random(1);
    // Few letters, so that phrases are often there; some far apart in Unicode, so that pairs share slots.
    const QString letters = QStringLiteral("abc éßक \U0001F3B8");
    const auto randomText = [&](int length) {
        QString text;
        for (int index = 0; index < length; ++index) {
            text += letters[static_cast<qsizetype>(random() % static_cast<unsigned>(letters.size()))];
        }
        return text;
    };
    int held = 0;
    for (int round = 0; round < 20'000; ++round) {
        const QString text = randomText(40);
        const QString phrase = randomText(static_cast<int>(random() % 5));
        if (text.contains(phrase)) {
            ++held;
            EXPECT_TRUE(BigramFilter(text).mayHold(phrase));
        }
    }
    EXPECT_GT(held, 5'000);
}

TEST(BigramFilter, PhraseWithAnAbsentPair_IsRuledOut) {
    const BigramFilter filter(u"what a lovely day");
    EXPECT_FALSE(filter.mayHold(u"play"));
    EXPECT_TRUE(filter.mayHold(u"lovely"));
    EXPECT_TRUE(filter.mayHold(u"x")); // one character has no pair
}

} // namespace
} // namespace brivandel
