#pragma once

#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11Keymap.h"

#include <bitset>
#include <cstdint>
#include <optional>
#include <vector>

namespace brivandel::x11 {

/// The keys that are down, by X key code.
using DownKeys = std::bitset<256>;

/// Presses or releases a key as the keyboard of programs (XTEST) does.
void fakeKey(const Connection& connection, xcb_keycode_t key, bool down);

/// Lifts the modifier keys that are held, the user's foot on Shift included, so that they do not mix with the
/// keys of a script; puts back at the end those that are still held. Only inside a server grab.
class LiftedModifiers {
public:
    explicit LiftedModifiers(const Connection& connection);
    ~LiftedModifiers();
    LiftedModifiers(const LiftedModifiers&) = delete;
    LiftedModifiers& operator=(const LiftedModifiers&) = delete;

    /// Keys that switch a lock are not put back: that would switch it once more. Others need not be known.
    void leaveOut(const Keymap& keymap);
    /// Lifts one key more, not to be put back: what it types was typed when it was pressed.
    void liftForGood(xcb_keycode_t key) const;

private:
    const Connection& connection_;
    DownKeys down_;
    std::vector<xcb_keycode_t> lifted_;
    /// Which of those were held by programs; no program can let go during a grab.
    DownKeys heldByPrograms_;
};

/// Switches Caps Lock and its like off, and Num Lock on where the key needs it; puts the locks back at the
/// end, whatever the key did to them. A modifier that was latched (sticky keys) counts as used. Only inside a
/// server grab.
class SteadiedLocks {
public:
    SteadiedLocks(const Connection& connection, const Keymap& keymap, bool needsNumLock);
    ~SteadiedLocks();
    SteadiedLocks(const SteadiedLocks&) = delete;
    SteadiedLocks& operator=(const SteadiedLocks&) = delete;

private:
    const Connection& connection_;
    std::optional<std::uint8_t> lockedBefore_;
};

} // namespace brivandel::x11
