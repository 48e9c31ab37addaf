#include "platform/linux/keys/X11HeldKeys.h"

#include "platform/linux/keys/XkbProtocol.h"

#include <QByteArrayView>

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <span>

namespace brivandel::x11 {

namespace {

constexpr std::uint8_t everyModifier = 0xff;

DownKeys fromBytes(std::span<const std::uint8_t, 32> bytes) {
    DownKeys keys;
    for (std::size_t key = 0; key < keys.size(); ++key) {
        keys[key] = std::bitset<8>(bytes[key / 8])[key % 8];
    }
    return keys;
}

DownKeys keysDown(const Connection& connection) {
    const auto answer = reply<xcb_query_keymap_reply>(connection.xcb(), xcb_query_keymap(connection.xcb()));
    return answer ? fromBytes(std::span<const std::uint8_t, 32>(answer->keys)) : DownKeys{};
}

std::vector<xcb_keycode_t> modifierKeys(const Connection& connection) {
    const auto answer =
        reply<xcb_get_modifier_mapping_reply>(connection.xcb(), xcb_get_modifier_mapping(connection.xcb()));
    if (!answer) {
        return {};
    }
    const auto* const codes = xcb_get_modifier_mapping_keycodes(answer.get());
    std::vector<xcb_keycode_t> keys(codes, codes + xcb_get_modifier_mapping_keycodes_length(answer.get()));
    std::erase(keys, 0);
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

DownKeys keysDownOf(const Connection& connection, xcb_input_device_id_t device) {
    const auto answer = reply<xcb_input_query_device_state_reply>(
        connection.xcb(), xcb_input_query_device_state(connection.xcb(), static_cast<std::uint8_t>(device)));
    if (!answer) {
        return {};
    }
    auto classes = xcb_input_query_device_state_classes_iterator(answer.get());
    for (; classes.rem > 0; xcb_input_input_state_next(&classes)) {
        if (classes.data->class_id == XCB_INPUT_INPUT_CLASS_KEY) {
            const auto* const keys = reinterpret_cast<const xcb_input_key_state_t*>(classes.data);
            return fromBytes(std::span<const std::uint8_t, 32>(keys->keys));
        }
    }
    return {};
}

struct KeysByHolder {
    DownKeys programs;
    DownKeys people;
};

/// Tells the keys that programs hold (by XTEST) from those under somebody's fingers.
KeysByHolder keysByHolder(const Connection& connection) {
    constexpr xcb_input_device_id_t allDevices = 0;
    auto* const xcb = connection.xcb();
    KeysByHolder result;
    const auto answer =
        reply<xcb_input_xi_query_device_reply>(xcb, xcb_input_xi_query_device(xcb, allDevices));
    if (!answer) {
        return result;
    }
    auto devices = xcb_input_xi_query_device_infos_iterator(answer.get());
    for (; devices.rem > 0; xcb_input_xi_device_info_next(&devices)) {
        if (devices.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD) {
            continue;
        }
        const QByteArrayView name(xcb_input_xi_device_info_name(devices.data),
                                  xcb_input_xi_device_info_name_length(devices.data));
        DownKeys& keys = name.contains("XTEST") ? result.programs : result.people;
        keys |= keysDownOf(connection, devices.data->deviceid);
    }
    return result;
}

} // namespace

void fakeKey(const Connection& connection, xcb_keycode_t key, bool down) {
    xcb_test_fake_input(connection.xcb(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key, XCB_CURRENT_TIME,
                        XCB_NONE, 0, 0, 0);
}

LiftedModifiers::LiftedModifiers(const Connection& connection)
    : connection_(connection)
    , down_(keysDown(connection)) {
    const auto modifiers = modifierKeys(connection);
    std::ranges::copy_if(modifiers, std::back_inserter(lifted_),
                         [this](xcb_keycode_t key) { return down_[key]; });
    if (!lifted_.empty()) {
        heldByPrograms_ = keysByHolder(connection).programs;
    }
    // All of them, also those that are up: the server may still hold a key down for programs that a person
    // let go of, and would take no notice of its next press. It also makes the programs' keyboard the current
    // one, whose mapping is the one that counts now.
    for (const xcb_keycode_t key : modifiers) {
        fakeKey(connection, key, false);
    }
    connection.sync();
}

LiftedModifiers::~LiftedModifiers() {
    if (lifted_.empty()) {
        return;
    }
    const DownKeys held = heldByPrograms_ | keysByHolder(connection_).people;
    for (const xcb_keycode_t key : lifted_) {
        if (held[key]) {
            fakeKey(connection_, key, true);
        }
    }
}

void LiftedModifiers::leaveOut(const Keymap& keymap) {
    std::erase_if(lifted_, [&](xcb_keycode_t key) { return keymap.isLockKey(key); });
}

void LiftedModifiers::liftForGood(xcb_keycode_t key) const {
    if (down_[key]) {
        fakeKey(connection_, key, false);
    }
}

SteadiedLocks::SteadiedLocks(const Connection& connection, const Keymap& keymap, bool needsNumLock)
    : connection_(connection) {
    const auto state = reply<xcb_xkb_get_state_reply>(
        connection.xcb(), xcb_xkb_get_state(connection.xcb(), XCB_XKB_ID_USE_CORE_KBD));
    if (!state) {
        return;
    }
    const std::uint8_t numLock = keymap.numLockMask();
    const auto wanted = static_cast<std::uint8_t>(needsNumLock ? numLock : state->lockedMods & numLock);
    lockedBefore_ = state->lockedMods;
    xcb_xkb_latch_lock_state(connection.xcb(), XCB_XKB_ID_USE_CORE_KBD, everyModifier, wanted, 0, 0,
                             everyModifier, 0, 0);
}

SteadiedLocks::~SteadiedLocks() {
    if (lockedBefore_) {
        xcb_xkb_latch_lock_state(connection_.xcb(), XCB_XKB_ID_USE_CORE_KBD, everyModifier, *lockedBefore_, 0,
                                 0, 0, 0, 0);
    }
}

} // namespace brivandel::x11
