#include "e2e/face/Screen.h"

#include <QByteArray>

#include <gtest/gtest.h>
#include <poll.h>
#include <xcb/damage.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace brivandel {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

} // namespace

Screen::Screen() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_.get()) != 0) {
        throw std::runtime_error("there is no X display");
    }
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    const std::uint32_t structure = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_.get(), screen_->root, XCB_CW_EVENT_MASK, &structure);
    // Every change of the picture is told, whichever window it is in.
    const Owned<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
        connection_.get(), xcb_damage_query_version(connection_.get(), 1, 1), nullptr));
    xcb_damage_create(connection_.get(), xcb_generate_id(connection_.get()), screen_->root,
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(connection_.get());
}

Screen::~Screen() = default;

QRect Screen::geometry() const {
    return {0, 0, screen_->width_in_pixels, screen_->height_in_pixels};
}

xcb_atom_t Screen::atom(const char* name) const {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_.get(),
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QByteArray Screen::property(xcb_window_t window, const char* name) const {
    constexpr std::uint32_t longest = 1024;
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_.get(),
        xcb_get_property(connection_.get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longest),
        nullptr));
    return reply ? QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

void Screen::collect(xcb_window_t parent, const std::function<bool(xcb_window_t)>& condition,
                     std::vector<Window>& found) const {
    const Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection_.get(), xcb_query_tree(connection_.get(), parent), nullptr));
    if (!tree) {
        return;
    }
    const auto* children = xcb_query_tree_children(tree.get());
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        const xcb_window_t window = children[index];
        const Owned<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) {
            continue;
        }
        if (condition(window)) {
            const Owned<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
                connection_.get(), xcb_get_geometry(connection_.get(), window), nullptr));
            const Owned<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
                connection_.get(), xcb_translate_coordinates(connection_.get(), window, screen_->root, 0, 0),
                nullptr));
            if (geometry && place && geometry->width > 1) {
                found.push_back(
                    {window, QRect(place->dst_x, place->dst_y, geometry->width, geometry->height)});
            }
            continue;
        }
        collect(window, condition, found);
    }
}

std::vector<Screen::Window> Screen::windowsWhere(const std::function<bool(xcb_window_t)>& condition) const {
    std::vector<Window> found;
    collect(screen_->root, condition, found);
    return found;
}

std::vector<Screen::Window> Screen::windowsTitled(const QString& title) const {
    const QByteArray wanted = title.toUtf8();
    return windowsWhere([&](xcb_window_t window) { return property(window, "_NET_WM_NAME") == wanted; });
}

std::vector<Screen::Window> Screen::windowsOfClass(const QString& windowClass) const {
    const QByteArray wanted = windowClass.toUtf8() + '\0';
    return windowsWhere([&](xcb_window_t window) { return property(window, "WM_CLASS").endsWith(wanted); });
}

int Screen::menuCount() const {
    constexpr int higherThanAnyToolTip = 60;
    int count = 0;
    const auto all = windowsWhere([this](xcb_window_t window) {
        const Owned<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
        return attributes && attributes->override_redirect != 0 && !property(window, "WM_CLASS").isEmpty();
    });
    for (const auto& window : all) {
        count += window.geometry.height() > higherThanAnyToolTip;
    }
    return count;
}

QColor Screen::colorAt(const QPoint& place) const {
    const Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(
        connection_.get(),
        xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root,
                      static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 1, 1, ~0U),
        nullptr));
    if (!image) {
        return {};
    }
    const auto* bytes = xcb_get_image_data(image.get());
    return {bytes[2], bytes[1], bytes[0]};
}

int Screen::countOf(const QColor& color, const QRect& rect) const {
    const QRect seen = rect.intersected(geometry());
    const Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(
        connection_.get(),
        xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root,
                      static_cast<std::int16_t>(seen.x()), static_cast<std::int16_t>(seen.y()),
                      static_cast<std::uint16_t>(seen.width()), static_cast<std::uint16_t>(seen.height()),
                      ~0U),
        nullptr));
    if (!image) {
        return 0;
    }
    constexpr int tolerance = 6;
    const auto* bytes = xcb_get_image_data(image.get());
    int count = 0;
    for (int pixel = 0; pixel < seen.width() * seen.height(); ++pixel, bytes += 4) {
        count += std::abs(bytes[2] - color.red()) <= tolerance &&
                 std::abs(bytes[1] - color.green()) <= tolerance &&
                 std::abs(bytes[0] - color.blue()) <= tolerance;
    }
    return count;
}

void Screen::click(const QPoint& place, int button) {
    xcb_test_fake_input(connection_.get(), XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, screen_->root,
                        static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 0);
    for (const auto type : {XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE}) {
        xcb_test_fake_input(connection_.get(), static_cast<std::uint8_t>(type),
                            static_cast<std::uint8_t>(button), XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    }
    xcb_flush(connection_.get());
}

void Screen::press(xcb_keysym_t key) {
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(
        xcb_key_symbols_alloc(connection_.get()), &xcb_key_symbols_free);
    const Owned<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(symbols.get(), key));
    ASSERT_TRUE(codes && *codes != XCB_NO_SYMBOL) << "no key types " << key;
    for (const auto type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        xcb_test_fake_input(connection_.get(), static_cast<std::uint8_t>(type), *codes, XCB_CURRENT_TIME,
                            XCB_WINDOW_NONE, 0, 0, 0);
    }
    xcb_flush(connection_.get());
}

void Screen::close(xcb_window_t window) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("WM_PROTOCOLS");
    event.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(connection_.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_.get());
}

void Screen::move(xcb_window_t window, const QPoint& place) {
    const std::uint32_t values[] = {static_cast<std::uint32_t>(place.x()),
                                    static_cast<std::uint32_t>(place.y())};
    xcb_configure_window(connection_.get(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values);
    xcb_flush(connection_.get());
}

bool Screen::waitForFocus(xcb_window_t window, std::chrono::milliseconds patience) {
    const std::uint32_t focusChanges = XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &focusChanges);
    return waitUntil(
        [&] {
            const Owned<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
                connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
            return focus && focus->focus == window;
        },
        patience);
}

bool Screen::waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
        if (left <= 0) {
            return false;
        }
        bool isNews = false;
        while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            isNews = true;
        }
        if (isNews) {
            continue;
        }
        pollfd wait{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
        poll(&wait, 1, static_cast<int>(left));
    }
    return true;
}

} // namespace brivandel
