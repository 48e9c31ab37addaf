#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <type_traits>

namespace brivandel::x11 {

struct FreeReply {
    void operator()(void* reply) const {
        // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): xcb hands out memory of malloc.
        std::free(reply);
    }
};

template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

using Event = Reply<xcb_generic_event_t>;

/// The answer to a request, as in reply<xcb_get_geometry_reply>(connection, cookie); null when the server
/// refused it or the connection is lost.
template <auto takeReply, class Cookie>
[[nodiscard]] auto reply(xcb_connection_t* connection, Cookie cookie) {
    using T = std::remove_pointer_t<decltype(takeReply(connection, cookie, nullptr))>;
    return Reply<T>(takeReply(connection, cookie, nullptr));
}

} // namespace brivandel::x11
