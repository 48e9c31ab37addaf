#pragma once

#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11Keymap.h"

#include <optional>
#include <vector>

namespace brivandel::x11 {

/// Keys without a symbol that are given one for a while, for characters that the layout lacks. At the end
/// they are as they were. The receiver asks the display what a key means only when it sees the key, so it has
/// to have seen it before that: see waitUntilHandled().
class BorrowedKeys {
public:
    explicit BorrowedKeys(const Connection& connection) : connection_(connection) {}
    ~BorrowedKeys();
    BorrowedKeys(const BorrowedKeys&) = delete;
    BorrowedKeys& operator=(const BorrowedKeys&) = delete;

    /// A key that types the character, without any modifier, from now on; none when no key is left.
    [[nodiscard]] std::optional<xcb_keycode_t> borrow(const Keymap& keymap, char32_t character);
    [[nodiscard]] bool isEmpty() const { return keys_.empty(); }
    void putBack();

private:
    void assign(xcb_keycode_t key, xcb_keysym_t symbol) const;

    const Connection& connection_;
    std::vector<xcb_keycode_t> keys_;
};

/// Returns when the program of that window has handled all that was sent to it before; false when it gave no
/// sign of that in time.
bool waitUntilHandled(Connection& connection, xcb_window_t window, Connection::Deadline deadline);

} // namespace brivandel::x11
