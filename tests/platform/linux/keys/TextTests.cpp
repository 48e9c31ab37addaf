#include "platform/linux/applescript/ProgramScripts.h"
#include "platform/linux/keys/Desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel::testing {

using ::testing::ElementsAre;

class TextTest : public DesktopTest {
protected:
    /// What a window gets of a text.
    QString typed(const QString& text) {
        KeyWindowProcess window;
        return typedInto(window, text);
    }
    QString typedInto(KeyWindowProcess& window, const QString& text) {
        const OpenTarget open = openTarget();
        const auto failure = open.session->typeText(open.target, text, {}, soon());
        EXPECT_FALSE(failure) << failure->detail.toStdString();
        return textOf(window.takeKeys(x()));
    }
};

TEST_F(TextTest, BarNumberOnALayoutWhoseDigitsNeedShift_Arrives) {
    setLayout(QStringLiteral("fr"));
    EXPECT_EQ(typed(QStringLiteral("1234567890")), QStringLiteral("1234567890"));
}

TEST_F(TextTest, ThirdLevelCharacters_ArriveFromTheLayout) {
    setLayout(QStringLiteral("de"));
    const auto before = keyboardMapping();
    EXPECT_EQ(typed(QStringLiteral("@€{}~zZ")), QStringLiteral("@€{}~zZ"));
    EXPECT_EQ(keyboardMapping(), before);
}

TEST_F(TextTest, ReturnAndTab_AreKeys) {
    KeyWindowProcess window;
    const OpenTarget open = openTarget();
    EXPECT_FALSE(open.session->typeText(open.target, QStringLiteral("\n\t\r"), {}, soon()));
    std::vector<int> codes;
    for (const SeenKey& key : window.takeKeys(x())) {
        codes.push_back(key.keyCode);
    }
    EXPECT_THAT(codes, ElementsAre(36, 48, 36));
}

TEST_F(TextTest, CharactersThatTheLayoutLacks_ArriveAndTheMappingIsPutBack) {
    KeyWindowProcess window;
    const auto before = keyboardMapping();
    const QString text = QStringLiteral("aéÉωΩ😀日é!");
    EXPECT_EQ(typedInto(window, text), text);
    EXPECT_EQ(keyboardMapping(), before);
}

TEST_F(TextTest, MoreMissingCharactersThanSpareKeys_AllArrive) {
    KeyWindowProcess window;
    const auto before = keyboardMapping();
    QString text;
    for (char16_t letter = 0x4e00; letter < 0x4e00 + 200; ++letter) {
        text += QChar(letter);
    }
    EXPECT_EQ(typedInto(window, text), text);
    EXPECT_EQ(keyboardMapping(), before);
}

TEST_F(TextTest, FocusLostWhileAKeyIsBorrowed_MappingIsPutBack) {
    const auto before = keyboardMapping();
    auto window = std::make_unique<KeyWindowProcess>();
    const OpenTarget open = openTarget();
    EXPECT_FALSE(open.session->typeText(open.target, QStringLiteral("é"), {}, soon()));
    window.reset();
    const auto failure = open.session->typeText(open.target, QStringLiteral("ω"), {}, soon());
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, KeyFailure::Kind::FocusElsewhere);
    EXPECT_EQ(keyboardMapping(), before);
}

TEST_F(TextTest, TimeUsedUp_MappingIsPutBackAndTheSessionLives) {
    KeyWindowProcess window;
    const OpenTarget open = openTarget();
    const auto before = keyboardMapping();
    QString text;
    for (char16_t letter = 0x4e00; letter < 0x4e00 + 200; ++letter) {
        text += QChar(letter);
    }

    const auto failure = open.session->typeText(
        open.target, text, {}, std::chrono::steady_clock::now() + std::chrono::milliseconds(300));

    EXPECT_EQ(failure, (KeyFailure{KeyFailure::Kind::TimedOut, {}}));
    EXPECT_EQ(keyboardMapping(), before);
    (void)window.takeKeys(x());
    EXPECT_EQ(open.session->typeText(open.target, QStringLiteral("a"), {}, soon()), std::nullopt);
    EXPECT_EQ(textOf(window.takeKeys(x())), QStringLiteral("a"));
}

TEST_F(TextTest, LetterOnACyrillicLayout_ArrivesWithItsModifier) {
    setLayout(QStringLiteral("us,ru"));
    setGroup(1);
    KeyWindowProcess window;
    EXPECT_EQ(run(keystrokeScript(QStringLiteral("keystroke \"z\" using {command down}"))), QString());
    const auto keys = window.takeKeys(x());
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys[0].symbol, QStringLiteral("z"));
    EXPECT_THAT(keys[0].modifiers, ElementsAre(QStringLiteral("command")));
}

TEST_F(TextTest, LayoutChangedDuringASession_IsFollowed) {
    KeyWindowProcess window;
    const OpenTarget open = openTarget();
    // The window reads the layout when it comes to the key: each is awaited before the next change.
    const auto typedNow = [&](const QString& text) {
        EXPECT_EQ(open.session->typeText(open.target, text, {}, soon()), std::nullopt);
        const auto keys = window.takeKeys(x());
        EXPECT_EQ(textOf(keys), text);
        return keys.empty() ? -1 : keys.front().keyCode;
    };
    EXPECT_EQ(typedNow(QStringLiteral("z")), 6);
    setLayout(QStringLiteral("de"));
    EXPECT_EQ(typedNow(QStringLiteral("z")), 16) << "the key beside T";
    setLayout(QStringLiteral("us,ru"));
    setGroup(1);
    EXPECT_EQ(typedNow(QStringLiteral("я")), 6) << "from the second group, not from a borrowed key";
}

} // namespace brivandel::testing
