#include "platform/linux/keys/Desktop.h"
#include "platform/linux/keys/KeyCodes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

namespace brivandel::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr xcb_keycode_t leftShift = KEY_LEFTSHIFT + xKeyCodeOffset;
constexpr std::uint16_t keyA = 0;
constexpr std::uint16_t keypad5 = 87;
constexpr std::uint8_t capsLockMask = XCB_MOD_MASK_LOCK;
constexpr std::uint8_t numLockMask = XCB_MOD_MASK_2;

/// Holds a key down as a program or as a hand does.
class HeldKey {
public:
    enum class By : std::uint8_t { Program, Hand };

    HeldKey(const x11::Connection& connection, xcb_keycode_t key, By by)
        : connection_(connection)
        , key_(key)
        , device_(by == By::Hand ? keyboardUnderHands() : std::uint8_t{0}) {
        fake(true);
    }
    ~HeldKey() { letGo(); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

    void letGo() { fake(false); }

private:
    [[nodiscard]] std::uint8_t keyboardUnderHands() const {
        const auto answer = x11::reply<xcb_input_xi_query_device_reply>(
            connection_.xcb(), xcb_input_xi_query_device(connection_.xcb(), 0));
        for (auto devices = xcb_input_xi_query_device_infos_iterator(answer.get()); devices.rem > 0;
             xcb_input_xi_device_info_next(&devices)) {
            const QByteArray name(xcb_input_xi_device_info_name(devices.data),
                                  xcb_input_xi_device_info_name_length(devices.data));
            if (devices.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && !name.contains("XTEST")) {
                return static_cast<std::uint8_t>(devices.data->deviceid);
            }
        }
        ADD_FAILURE() << "the display has no keyboard but that of programs";
        return 0;
    }

    void fake(bool down) const {
        const auto* const extension = xcb_get_extension_data(connection_.xcb(), &xcb_input_id);
        const int firstEvent = device_ == 0 ? 0 : extension->first_event;
        const int core = down ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
        const int input = down ? XCB_INPUT_DEVICE_KEY_PRESS : XCB_INPUT_DEVICE_KEY_RELEASE;
        const auto type = static_cast<std::uint8_t>(device_ == 0 ? core : firstEvent + input);
        xcb_test_fake_input(connection_.xcb(), type, key_, XCB_CURRENT_TIME, XCB_NONE, 0, 0, device_);
        connection_.sync();
    }

    const x11::Connection& connection_;
    xcb_keycode_t key_;
    std::uint8_t device_;
};

} // namespace

class KeyTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        window_ = std::make_unique<KeyWindowProcess>();
        open_ = openTarget();
    }
    void press(std::uint16_t virtualKeyCode, KeyModifiers modifiers = {}) const {
        const auto failure = open_.session->pressKey(open_.target, virtualKeyCode, modifiers, soon());
        EXPECT_FALSE(failure) << failure->detail.toStdString();
    }
    std::vector<SeenKey> takeKeys() { return window_->takeKeys(x()); }

    std::unique_ptr<KeyWindowProcess> window_;
    OpenTarget open_;
};

TEST_F(KeyTest, EveryKeyOfTheTable_ArrivesAsItself) {
    for (const KeyCodePair& pair : keyCodePairs()) {
        press(pair.virtualKeyCode);
        const auto keys = window_->takeAllKeys(x());
        ASSERT_EQ(keys.size(), 1U) << pair.virtualKeyCode;
        EXPECT_EQ(keys[0].keyCode, pair.virtualKeyCode);
    }
    EXPECT_EQ(lockedModifiers(), 0) << "Caps Lock and Num Lock are as before";
}

TEST_F(KeyTest, AllModifiers_Arrive) {
    press(keyA, KeyModifier::Command | KeyModifier::Shift | KeyModifier::Option | KeyModifier::Control);
    const auto keys = takeKeys();
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_THAT(keys[0].modifiers, ElementsAre(QStringLiteral("command"), QStringLiteral("control"),
                                               QStringLiteral("option"), QStringLiteral("shift")));
}

TEST_F(KeyTest, MovedModifier_IsFound) {
    setLayout(QStringLiteral("us"), {QStringLiteral("-option"), QStringLiteral("ctrl:swapcaps")});
    press(keyA, KeyModifier::Command);
    const auto keys = takeKeys();
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_THAT(keys[0].modifiers, ElementsAre(QStringLiteral("command")));
    EXPECT_EQ(lockedModifiers(), 0);
}

TEST_F(KeyTest, KeyThatTheKeyboardLacks_IsAnError) {
    const auto failure = open_.session->pressKey(open_.target, 63, {}, soon());
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, KeyFailure::Kind::NoSuchKey);
    EXPECT_EQ(failure->detail, QStringLiteral("This keyboard has no key with the code 63."));
    EXPECT_THAT(takeKeys(), IsEmpty());
}

TEST_F(KeyTest, KeypadDigit_IsADigitWithNumLockOffAndOn) {
    for (const std::uint8_t locks : {std::uint8_t{0}, numLockMask}) {
        lockModifiers(locks);
        press(keypad5);
        EXPECT_EQ(textOf(takeKeys()), QStringLiteral("5"));
        EXPECT_EQ(lockedModifiers(), locks);
    }
}

TEST_F(KeyTest, CapsLock_DoesNotChangeKeysAndIsPutBack) {
    lockModifiers(capsLockMask | numLockMask);
    press(keyA);
    EXPECT_FALSE(open_.session->typeText(open_.target, QStringLiteral("aB"), {}, soon()));
    EXPECT_EQ(textOf(takeKeys()), QStringLiteral("aaB"));
    EXPECT_EQ(lockedModifiers(), capsLockMask | numLockMask);
}

TEST_F(KeyTest, ShiftHeldByAProgram_DoesNotMixInAndIsPutBack) {
    const HeldKey held(x(), leftShift, HeldKey::By::Program);
    press(keyA);
    press(keyA, KeyModifier::Command);

    const auto keys = takeKeys();

    ASSERT_EQ(keys.size(), 2U);
    EXPECT_EQ(keys[0].text, QStringLiteral("a"));
    EXPECT_THAT(keys[0].modifiers, IsEmpty());
    EXPECT_THAT(keys[1].modifiers, ElementsAre(QStringLiteral("command")));
    EXPECT_TRUE(isKeyDown(leftShift));
}

TEST_F(KeyTest, ShiftHeldByHand_DoesNotMixInAndIsPutBack) {
    HeldKey held(x(), leftShift, HeldKey::By::Hand);
    ASSERT_TRUE(isKeyDown(leftShift));
    press(keyA);

    const auto keys = takeKeys();

    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys[0].text, QStringLiteral("a"));
    EXPECT_TRUE(isKeyDown(leftShift));
    held.letGo();
    EXPECT_FALSE(isKeyDown(leftShift));
}

TEST_F(KeyTest, ShiftHeldByHandBefore_CanBePressedAgain) {
    HeldKey held(x(), leftShift, HeldKey::By::Hand);
    press(keyA);
    held.letGo();
    press(keyA, KeyModifier::Shift);
    EXPECT_EQ(textOf(takeKeys()), QStringLiteral("aA"));
    EXPECT_FALSE(isKeyDown(leftShift));
}

TEST_F(KeyTest, KeyUnderAFinger_IsStillPressed) {
    const HeldKey held(x(), KEY_A + xKeyCodeOffset, HeldKey::By::Hand);
    (void)takeKeys();
    press(keyA);
    EXPECT_EQ(textOf(takeKeys()), QStringLiteral("a"));
}

} // namespace brivandel::testing
