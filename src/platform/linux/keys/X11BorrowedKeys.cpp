#include "platform/linux/keys/X11BorrowedKeys.h"

#include <algorithm>
#include <chrono>

namespace brivandel::x11 {

namespace {

/// Each key gets its symbol twice: alone, a letter would be given its other case on the second level, and a
/// capital the first.
constexpr std::uint8_t symbolsPerKey = 2;

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
    if (isEmpty()) {
        return;
    }
    assign(std::vector<xcb_keysym_t>(std::size_t{keys_.count} * symbolsPerKey, XCB_NO_SYMBOL));
    connection_.sync();
    keys_ = {};
}

void BorrowedKeys::borrow(const Keymap& keymap, std::span<const char32_t> characters) {
    const KeyRun spare = keymap.spareKeys();
    std::vector<xcb_keysym_t> symbols;
    for (const char32_t character : characters.first(std::min<std::size_t>(characters.size(), spare.count))) {
        symbols.insert(symbols.end(), symbolsPerKey, xkb_utf32_to_keysym(character));
    }
    if (!symbols.empty()) {
        keys_ = {.first = spare.first, .count = static_cast<std::uint8_t>(symbols.size() / symbolsPerKey)};
        assign(symbols);
    }
}

void BorrowedKeys::assign(const std::vector<xcb_keysym_t>& symbols) const {
    xcb_change_keyboard_mapping(connection_.xcb(), keys_.count, keys_.first, symbolsPerKey, symbols.data());
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
