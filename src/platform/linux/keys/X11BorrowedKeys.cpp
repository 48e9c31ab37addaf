#include "platform/linux/keys/X11BorrowedKeys.h"

#include <array>
#include <chrono>

namespace brivandel::x11 {

namespace {

void sendPing(const Connection& connection, xcb_window_t window, std::uint32_t stamp) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = connection.atom(Atom::WmProtocols);
    message.data.data32[0] = connection.atom(Atom::NetWmPing);
    message.data.data32[1] = stamp;
    message.data.data32[2] = window;
    static_assert(sizeof message == 32, "what the protocol sends");
    xcb_send_event(connection.xcb(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
}

bool isAnswer(const Connection& connection, const xcb_generic_event_t& event, xcb_window_t window,
              std::uint32_t stamp) {
    if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE) {
        return false;
    }
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    return message.data.data32[0] == connection.atom(Atom::NetWmPing) && message.data.data32[1] == stamp &&
           message.data.data32[2] == window;
}

void selectRootEvents(const Connection& connection, std::uint32_t events) {
    xcb_change_window_attributes(connection.xcb(), connection.root(), XCB_CW_EVENT_MASK, &events);
}

} // namespace

BorrowedKeys::~BorrowedKeys() {
    putBack();
}

void BorrowedKeys::putBack() {
    for (const xcb_keycode_t key : keys_) {
        assign(key, XCB_NO_SYMBOL);
    }
    if (!keys_.empty()) {
        connection_.sync();
    }
    keys_.clear();
}

std::optional<xcb_keycode_t> BorrowedKeys::borrow(const Keymap& keymap, char32_t character) {
    const xkb_keysym_t symbol = xkb_utf32_to_keysym(character);
    const auto spare = keymap.spareKeys();
    if (symbol == XKB_KEY_NoSymbol || spare.empty()) {
        return std::nullopt;
    }
    keys_.push_back(spare.front());
    assign(spare.front(), symbol);
    return spare.front();
}

/// The same symbol twice: alone, a letter would be given its other case on the second level, and a capital
/// the first.
void BorrowedKeys::assign(xcb_keycode_t key, xcb_keysym_t symbol) const {
    const std::array<xcb_keysym_t, 2> symbols{symbol, symbol};
    xcb_change_keyboard_mapping(connection_.xcb(), 1, key, symbols.size(), symbols.data());
}

/// A program answers a ping when it comes to it, and that is after the keys.
bool waitUntilHandled(Connection& connection, xcb_window_t window, Connection::Deadline deadline) {
    const auto stamp =
        static_cast<std::uint32_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    // The answer goes to who selects SubstructureNotify on the root; Qt 6 sends it to StructureNotify
    // instead.
    selectRootEvents(connection, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    sendPing(connection, window, stamp);
    bool answered = false;
    while (!answered) {
        const Event event = connection.waitForEvent(deadline);
        if (event == nullptr) {
            break;
        }
        answered = isAnswer(connection, *event, window, stamp);
    }
    selectRootEvents(connection, XCB_EVENT_MASK_NO_EVENT);
    return answered;
}

} // namespace brivandel::x11
