#pragma once

#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11Keymap.h"

#include <cstddef>
#include <span>
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

    /// From now on there is a key for each of the characters, without any modifier, as far as there are
    /// spare keys; the first characters go first. All with one request, since every change of the mapping
    /// keeps each program of the desktop busy. What was borrowed before has to be put back first.
    void borrow(const Keymap& keymap, std::span<const char32_t> characters);
    [[nodiscard]] bool isEmpty() const { return keys_.count == 0; }
    void putBack();

private:
    void assign(const std::vector<xcb_keysym_t>& symbols) const;

    const Connection& connection_;
    KeyRun keys_;
};

/// Returns when the program of that window has handled all that was sent to it before; false when it gave no
/// sign of that in time.
bool waitUntilHandled(Connection& connection, xcb_window_t window, Connection::Deadline deadline);

} // namespace brivandel::x11
