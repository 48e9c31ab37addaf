#include "engine/Respelling.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(Respelling, Word_IsWrittenInSyllables) {
    EXPECT_EQ(respelled(u"M EH T R AH N OW M"), QStringLiteral("meht-ruh-nohm"));
    EXPECT_EQ(respelled(u"K W AA N T AY Z"), QStringLiteral("kwahn-teyez"));
}

TEST(Respelling, VowelsInARow_AreSyllablesOfTheirOwn) {
    EXPECT_EQ(respelled(u"R IY AE K T"), QStringLiteral("ree-akt"));
}

TEST(Respelling, NoVowel_IsTheConsonants) {
    EXPECT_EQ(respelled(u"SH"), QStringLiteral("sh"));
}

TEST(Respelling, NothingAndWhatIsNoPhone_GiveNothing) {
    EXPECT_EQ(respelled(u""), QString());
    EXPECT_EQ(respelled(u"SIL ++NOISE++"), QString());
}

} // namespace
} // namespace brivandel
