#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/keys/KeySender.h"
#include "platform/linux/keys/X11KeyboardLayout.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <set>

namespace brivandel {

TEST(KeyCodes, EachNumber_StandsOnce) {
    std::set<std::uint16_t> virtualKeyCodes;
    std::set<std::uint16_t> evdevCodes;
    for (const KeyCodePair& pair : keyCodePairs()) {
        EXPECT_TRUE(virtualKeyCodes.insert(pair.virtualKeyCode).second) << pair.virtualKeyCode;
        EXPECT_TRUE(evdevCodes.insert(pair.evdevCode).second) << pair.evdevCode;
        EXPECT_LE(pair.virtualKeyCode, 127);
        EXPECT_LE(pair.evdevCode + xKeyCodeOffset, 255);
        EXPECT_EQ(evdevCodeForVirtualKeyCode(pair.virtualKeyCode), pair.evdevCode);
        EXPECT_EQ(virtualKeyCodeForEvdevCode(pair.evdevCode), pair.virtualKeyCode);
    }
}

TEST(KeyCodes, KeysThatNamesMislead_AreTheRealOnes) {
    EXPECT_EQ(evdevCodeForVirtualKeyCode(49), KEY_SPACE);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(36), KEY_ENTER);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(124), KEY_RIGHT);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(41), KEY_SEMICOLON);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(44), KEY_SLASH);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(10), KEY_102ND);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(71), KEY_NUMLOCK);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(51), KEY_BACKSPACE);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(117), KEY_DELETE);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(105), KEY_F13);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(107), KEY_F14);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(113), KEY_F15);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(106), KEY_F16);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(90), KEY_F20);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(55), KEY_LEFTCTRL);
    EXPECT_EQ(evdevCodeForVirtualKeyCode(59), KEY_LEFTMETA);
}

TEST(KeyCodes, KeysOfOneSystemOnly_HaveNoNumber) {
    EXPECT_FALSE(evdevCodeForVirtualKeyCode(63));
    EXPECT_FALSE(evdevCodeForVirtualKeyCode(127));
    EXPECT_FALSE(evdevCodeForVirtualKeyCode(65535));
    EXPECT_FALSE(virtualKeyCodeForEvdevCode(KEY_SYSRQ));
}

TEST(ScanCodes, EveryKeyButTheSoundKeys_IsTheKeyOfThatPlace) {
    const X11KeyboardLayout layout(":4999"); // asks no display
    const std::set<std::uint16_t> soundKeys = {72, 73, 74};
    for (const KeyCodePair& pair : keyCodePairs()) {
        const auto keyCode =
            layout.keyCodeForNativeKey({static_cast<std::uint32_t>(pair.evdevCode + xKeyCodeOffset)});
        if (soundKeys.contains(pair.virtualKeyCode)) {
            EXPECT_FALSE(keyCode) << pair.virtualKeyCode;
        } else {
            EXPECT_EQ(keyCode, pair.virtualKeyCode);
        }
    }
}

TEST(ScanCodes, KeysOfMediaPlayersAndNoKeys_HaveNoKeyCode) {
    const X11KeyboardLayout layout(":4999");
    EXPECT_FALSE(layout.keyCodeForNativeKey({KEY_PLAYPAUSE + xKeyCodeOffset}));
    EXPECT_FALSE(layout.keyCodeForNativeKey({KEY_NEXTSONG + xKeyCodeOffset}));
    EXPECT_FALSE(layout.keyCodeForNativeKey({0}));
    EXPECT_FALSE(layout.keyCodeForNativeKey({xKeyCodeOffset - 1}));
    EXPECT_FALSE(layout.keyCodeForNativeKey({0x10000 + KEY_A + xKeyCodeOffset}));
    EXPECT_FALSE(layout.keyCodeForNativeKey({0xffffffff}));
}

TEST(TargetName, Setting_NamesAProcessUnlessItSaysTitle) {
    EXPECT_EQ(TargetName::fromSetting(QStringLiteral(" Ardour ")),
              (TargetName{QStringLiteral("Ardour"), TargetName::By::Process}));
    EXPECT_EQ(TargetName::fromSetting(QStringLiteral("title: My Song")),
              (TargetName{QStringLiteral("My Song"), TargetName::By::WindowTitle}));
    EXPECT_EQ(TargetName::fromSetting({}), TargetName());
}

} // namespace brivandel
