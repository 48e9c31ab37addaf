#include "platform/linux/keys/X11Connection.h"

#include "platform/linux/keys/XkbProtocol.h"

#include <poll.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <future>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>

namespace brivandel::x11 {

namespace {

/// In the order of Atom.
constexpr std::array<std::string_view, static_cast<std::size_t>(Atom::Count)> atomNames{
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_PING",
    "_NET_WM_STATE",
    "_NET_WM_STATE_MODAL",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "UTF8_STRING",
    "WM_CLIENT_LEADER",
    "WM_CLIENT_MACHINE",
    "WM_PROTOCOLS",
    "WM_STATE",
};

QString nameOf(const QByteArray& display) {
    const QByteArray name = display.isEmpty() ? qgetenv("DISPLAY") : display;
    return QString::fromLocal8Bit(name);
}

KeyFailure noDisplay(const QByteArray& display) {
    const QString name = nameOf(display);
    return {KeyFailure::Kind::NoDisplay,
            name.isEmpty() ? QStringLiteral("There is no X display to send keys to (DISPLAY is not set).")
                           : QStringLiteral("The X display \"%1\" can’t be opened.").arg(name)};
}

KeyFailure notAnswering() {
    return {KeyFailure::Kind::TimedOut, QStringLiteral("The X display does not answer.")};
}

/// One at a time: libXau keeps the name of the authority file in a buffer that all its callers share.
std::mutex& connecting() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

std::variant<std::unique_ptr<Connection>, KeyFailure> Connection::open(const QByteArray& display,
                                                                       Deadline deadline) {
    if (nameOf(display).isEmpty()) {
        return noDisplay(display);
    }
    auto connected = connectBy(display, deadline);
    if (!connected) {
        return notAnswering();
    }
    if (xcb_connection_has_error(connected->first.get()) != 0) {
        return noDisplay(display);
    }
    std::unique_ptr<Connection> connection(new Connection(std::move(connected->first)));
    const Bound bound(*connection, deadline);
    if (!connection->setUp(connected->second)) {
        if (auto failure = connection->lost(deadline)) {
            return std::move(*failure);
        }
        return KeyFailure{KeyFailure::Kind::NotAllowed,
                          QStringLiteral("The X display has no XKEYBOARD extension.")};
    }
    return connection;
}

/// Connecting waits for the server and cannot be ended from outside, since the socket is not known yet. So it
/// runs on a thread of its own; one that comes too late cleans up behind itself.
std::optional<std::pair<Connection::Handle, int>> Connection::connectBy(const QByteArray& display,
                                                                        Deadline deadline) {
    std::promise<std::optional<std::pair<Handle, int>>> promise;
    auto answer = promise.get_future();
    std::thread([display, deadline, promise = std::move(promise)]() mutable {
        const std::scoped_lock lock(connecting());
        if (std::chrono::steady_clock::now() >= deadline) {
            promise.set_value(std::nullopt);
            return;
        }
        int screenIndex = 0;
        Handle handle(xcb_connect(display.isEmpty() ? nullptr : display.constData(), &screenIndex));
        promise.set_value(std::pair(std::move(handle), screenIndex));
    }).detach();
    if (answer.wait_until(deadline) != std::future_status::ready) {
        return std::nullopt;
    }
    return answer.get();
}

Connection::Connection(Handle connection)
    : connection_(std::move(connection))
    , watchdog_(xcb_get_file_descriptor(connection_.get())) {}

Connection::~Connection() = default;

Connection::Bound::Bound(Connection& connection, Deadline deadline) : watchdog_(connection.watchdog_) {
    watchdog_.watch(deadline);
}

Connection::Bound::~Bound() {
    watchdog_.watch(std::nullopt);
}

bool Connection::setUp(int screenIndex) {
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(xcb()));
    for (int i = 0; i < screenIndex && screen.rem > 1; ++i) {
        xcb_screen_next(&screen);
    }
    root_ = screen.data->root;
    if (xkb_x11_setup_xkb_extension(xcb(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                    XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &xkbFirstEvent_,
                                    nullptr) == 0) {
        return false;
    }
    const auto* const xtest = xcb_get_extension_data(xcb(), &xcb_test_id);
    hasXTest_ = xtest != nullptr && xtest->present != 0;
    internAtoms();
    selectKeyboardEvents();
    return xcb_connection_has_error(xcb()) == 0;
}

void Connection::internAtoms() {
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies{};
    std::ranges::transform(atomNames, cookies.begin(), [this](std::string_view name) {
        return xcb_intern_atom(xcb(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    });
    std::ranges::transform(cookies, atoms_.begin(), [this](xcb_intern_atom_cookie_t cookie) {
        const auto answer = reply<xcb_intern_atom_reply>(xcb(), cookie);
        return answer ? answer->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    });
}

void Connection::selectKeyboardEvents() const {
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t mapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                       XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS;
    xcb_xkb_select_events(xcb(), XCB_XKB_ID_USE_CORE_KBD, events, 0, events, mapParts, mapParts, nullptr);
}

std::optional<KeyFailure> Connection::lost(Deadline deadline) const {
    if (xcb_connection_has_error(xcb()) == 0) {
        return std::nullopt;
    }
    if (std::chrono::steady_clock::now() >= deadline) {
        return notAnswering();
    }
    return KeyFailure{KeyFailure::Kind::NoDisplay,
                      QStringLiteral("The connection to the X display was lost.")};
}

bool Connection::noteKeyboardChange(const xcb_generic_event_t& event) {
    const std::uint8_t type = event.response_type & 0x7f;
    if (type != xkbFirstEvent_) {
        return type == XCB_MAPPING_NOTIFY || type == 0;
    }
    keymapChanged_ = true;
    return true;
}

Event Connection::waitForEvent(Deadline deadline) {
    xcb_flush(xcb());
    for (;;) {
        while (Event event{xcb_poll_for_event(xcb())}) {
            if (!noteKeyboardChange(*event)) {
                return event;
            }
        }
        const auto patience =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
        pollfd socket{.fd = xcb_get_file_descriptor(xcb()), .events = POLLIN, .revents = 0};
        if (patience <= 0 || xcb_connection_has_error(xcb()) != 0 ||
            (poll(&socket, 1, static_cast<int>(patience)) < 0 && errno != EINTR)) {
            return nullptr;
        }
    }
}

void Connection::drainEvents() {
    while (const Event event{xcb_poll_for_event(xcb())}) {
        (void)noteKeyboardChange(*event);
    }
}

bool Connection::takeKeymapChange() {
    return std::exchange(keymapChanged_, false);
}

std::vector<std::uint32_t> Connection::property32(xcb_window_t window, xcb_atom_t property,
                                                  std::uint32_t maxItemCount) const {
    const auto answer = reply<xcb_get_property_reply>(
        xcb(), xcb_get_property(xcb(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, maxItemCount));
    if (!answer || answer->format != 32) {
        return {};
    }
    const auto* const items = static_cast<const std::uint32_t*>(xcb_get_property_value(answer.get()));
    return {items, items + answer->value_len};
}

QByteArray Connection::propertyBytes(xcb_window_t window, xcb_atom_t property) const {
    constexpr std::uint32_t maxWordCount = 256;
    const auto answer = reply<xcb_get_property_reply>(
        xcb(), xcb_get_property(xcb(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, maxWordCount));
    if (!answer || answer->format != 8) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(answer.get())),
            static_cast<qsizetype>(answer->value_len)};
}

void Connection::sync() const {
    (void)reply<xcb_get_input_focus_reply>(xcb(), xcb_get_input_focus(xcb()));
}

} // namespace brivandel::x11
