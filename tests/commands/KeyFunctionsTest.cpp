#include "commands/KeyFunctions.h"

#include "commands/KeystrokeScript.h"

#include <QMap>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

constexpr std::int64_t allModifiers = shiftModifier | controlModifier | optionModifier | commandModifier;

// A layout of a few keys, to be changed between two looks at it.
class FakeLayout final : public KeyboardLayout {
public:
    std::optional<QString> characterForKeyCode(std::uint16_t keyCode) const override {
        const auto found = characters.find(keyCode);
        return found == characters.end() ? std::nullopt : std::optional(*found);
    }
    std::optional<std::uint16_t> keyCodeForNativeKey(NativeKey /*key*/) const override {
        return std::nullopt;
    }

    QMap<std::uint16_t, QString> characters = {
        {1, QStringLiteral("s")}, {24, QStringLiteral("ß")}, {50, QString()}};
};

TEST(KeyDisplayString, NamedKeys_ShowTheirNames) {
    const QMap<int, QString> names = {
        {36, QStringLiteral("↩")},    {48, QStringLiteral("⇥")},    {49, QStringLiteral("Space")},
        {51, QStringLiteral("⌫")},    {52, QStringLiteral("↩")},    {53, QStringLiteral("⎋")},
        {71, QStringLiteral("⌧")},    {76, QStringLiteral("↩")},    {96, QStringLiteral("F5")},
        {97, QStringLiteral("F6")},   {98, QStringLiteral("F7")},   {99, QStringLiteral("F3")},
        {100, QStringLiteral("F8")},  {101, QStringLiteral("F9")},  {103, QStringLiteral("F11")},
        {105, QStringLiteral("F13")}, {109, QStringLiteral("F10")}, {111, QStringLiteral("F12")},
        {113, QStringLiteral("F14")}, {115, QStringLiteral("↖")},   {116, QStringLiteral("⇞")},
        {117, QStringLiteral("⌦")},   {118, QStringLiteral("F4")},  {119, QStringLiteral("↘")},
        {120, QStringLiteral("F2")},  {121, QStringLiteral("⇟")},   {122, QStringLiteral("F1")},
        {123, QStringLiteral("←")},   {124, QStringLiteral("→")},   {125, QStringLiteral("↓")},
        {126, QStringLiteral("↑")},
    };
    ASSERT_EQ(names.size(), 31);
    FakeLayout layout;
    layout.characters.insert(49, QStringLiteral("x")); // the table is asked first
    for (int code = 0; code < 128; ++code) {
        const QString shown = keyDisplayString(code, 0, layout);
        if (names.contains(code)) {
            EXPECT_EQ(shown, names.value(code));
        } else {
            EXPECT_TRUE(shown.startsWith(QStringLiteral("Key")) || code == 1 || code == 24) << code;
        }
    }
}

TEST(KeyDisplayString, TypedCharacter_IsShownInUpperCase) {
    const FakeLayout layout;
    EXPECT_EQ(keyDisplayString(1, 0, layout), QStringLiteral("S"));
    EXPECT_EQ(keyDisplayString(24, 0, layout), QStringLiteral("SS"));
    EXPECT_EQ(keyDisplayString(1, commandModifier | shiftModifier, layout), QStringLiteral("⇧⌘S"));
}

TEST(KeyDisplayString, NothingTyped_ShowsTheCode) {
    const FakeLayout layout;
    EXPECT_EQ(keyDisplayString(7, 0, layout), QStringLiteral("Key7"));
    EXPECT_EQ(keyDisplayString(50, 0, layout), QStringLiteral("Key50"));
    EXPECT_EQ(keyDisplayString(65535, 0, layout), QStringLiteral("Key65535"));
}

TEST(KeyDisplayString, AllModifiers_StandInTheOrderControlOptionShiftCommand) {
    EXPECT_EQ(keyDisplayString(49, allModifiers, FakeLayout()), QStringLiteral("⌃⌥⇧⌘Space"));
}

TEST(KeyDisplayString, OtherFlags_AreIgnored) {
    constexpr std::int64_t capsLock = 0x10000;
    constexpr std::int64_t function = 0x800000;
    EXPECT_EQ(keyDisplayString(49, capsLock | function, FakeLayout()), QStringLiteral("Space"));
}

TEST(KeyDisplayStringDeathTest, CodeOfNoEvent_EndsTheProgram) {
    const FakeLayout layout;
    EXPECT_DEATH(static_cast<void>(keyDisplayString(-1, 0, layout)), "key code -1");
    EXPECT_DEATH(static_cast<void>(keyDisplayString(65536, 0, layout)), "key code 65536");
}

TEST(AppleScriptForKey, NoModifiers_HasNoUsingClause) {
    EXPECT_EQ(appleScriptForKey(122, 0), keystrokeScript(QStringLiteral("key code 122")));
}

TEST(AppleScriptForKey, AllModifiers_StandInTheOrderCommandShiftOptionControl) {
    EXPECT_EQ(
        appleScriptForKey(1, allModifiers),
        QStringLiteral("tell application \"System Events\"\n"
                       "    tell process \"Logic Pro\"\n"
                       "        set frontmost to true\n"
                       "        key code 1 using {command down, shift down, option down, control down}\n"
                       "    end tell\n"
                       "end tell"));
}

TEST(AppleScriptForKey, SomeModifiers_KeepTheirOrder) {
    EXPECT_EQ(appleScriptForKey(1, commandModifier | shiftModifier),
              keystrokeScript(QStringLiteral("key code 1 using {command down, shift down}")));
    EXPECT_EQ(appleScriptForKey(1, controlModifier | optionModifier),
              keystrokeScript(QStringLiteral("key code 1 using {option down, control down}")));
}

TEST(CaptureKey, Texts_AreThoseOfTheMomentOfCapture) {
    FakeLayout layout;
    const CapturedKey key = captureKey(1, commandModifier, layout);
    layout.characters.insert(1, QStringLiteral("o"));
    EXPECT_EQ(key,
              (CapturedKey{1, commandModifier, QStringLiteral("⌘S"), appleScriptForKey(1, commandModifier)}));
}

} // namespace
} // namespace brivandel
