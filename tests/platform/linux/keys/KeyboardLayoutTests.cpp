#include "platform/linux/keys/Desktop.h"
#include "platform/linux/keys/X11KeyboardLayout.h"

#include <gtest/gtest.h>

namespace brivandel::testing {

class KeyboardLayoutTest : public DesktopTest {
protected:
    static std::optional<QString> named(std::uint16_t keyCode) {
        return X11KeyboardLayout().characterForKeyCode(keyCode);
    }
};

TEST_F(KeyboardLayoutTest, Letters_FollowTheLayout) {
    EXPECT_EQ(named(12), QStringLiteral("q"));
    setLayout(QStringLiteral("fr"));
    EXPECT_EQ(named(12), QStringLiteral("a"));
    EXPECT_EQ(named(18), QStringLiteral("&"));
    EXPECT_EQ(named(19), QStringLiteral("é"));
}

TEST_F(KeyboardLayoutTest, DeadKeysAndKeysWithoutCharacter_HaveNoName) {
    setLayout(QStringLiteral("fr"));
    EXPECT_FALSE(named(33)) << "a dead circumflex";
    EXPECT_FALSE(named(36)) << "Return";
    EXPECT_FALSE(named(122)) << "F1";
    EXPECT_FALSE(named(55)) << "command";
    EXPECT_FALSE(named(63)) << "a key that X does not have";
}

TEST_F(KeyboardLayoutTest, CyrillicGroup_IsNamedByTheFirstLayoutThatHasLetters) {
    setLayout(QStringLiteral("ru,us"));
    EXPECT_EQ(named(12), QStringLiteral("q"));
    setLayout(QStringLiteral("ru,fr,us"));
    EXPECT_EQ(named(12), QStringLiteral("a"));
    setGroup(2);
    EXPECT_EQ(named(12), QStringLiteral("q")) << "the current one has them all";
}

TEST_F(KeyboardLayoutTest, CyrillicLayoutAlone_NamesNothing) {
    setLayout(QStringLiteral("ru"));
    EXPECT_FALSE(named(12));
    EXPECT_FALSE(named(18));
}

TEST_F(KeyboardLayoutTest, KeypadDigits_AreNamedWithNumLockOn) {
    lockModifiers(0);
    EXPECT_EQ(named(82), QStringLiteral("0"));
    EXPECT_EQ(named(92), QStringLiteral("9"));
    EXPECT_EQ(named(65), QStringLiteral("."));
    EXPECT_EQ(named(69), QStringLiteral("+"));
}

TEST_F(KeyboardLayoutTest, LocksOfTheMoment_DoNotMatter) {
    lockModifiers(XCB_MOD_MASK_LOCK);
    EXPECT_EQ(named(0), QStringLiteral("a"));
}

} // namespace brivandel::testing
