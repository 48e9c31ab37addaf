#include "platform/linux/desktop/X11Events.h"

#include <QSocketNotifier>
#include <QTimer>

#include <xcb/xinput.h>

#include <cstdlib>
#include <string>

namespace brivandel {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

xcb_atom_t atomNamed(xcb_connection_t* connection, const std::string& name) {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

X11Events::X11Events() {
    int screenNumber = 0;
    connection_.reset(xcb_connect(nullptr, &screenNumber));
    if (xcb_connection_has_error(connection_.get()) != 0) {
        return;
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_.get()));
    for (int skip = screenNumber; skip > 0 && screens.rem > 1; --skip) {
        xcb_screen_next(&screens);
    }
    root_ = screens.data->root;
    traySelection_ = atomNamed(connection_.get(), "_NET_SYSTEM_TRAY_S" + std::to_string(screenNumber));
    managerMessage_ = atomNamed(connection_.get(), "MANAGER");
    // A tray that comes announces itself to those who listen for changes of the root window's structure.
    const std::uint32_t structure = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), root_, XCB_CW_EVENT_MASK, &structure);
    prepareInput();
    followTray();

    notifier_ = new QSocketNotifier(xcb_get_file_descriptor(connection_.get()), QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, &X11Events::read);
    // What arrived while the requests above were answered is in memory already: the socket stays silent about
    // it.
    QTimer::singleShot(0, this, &X11Events::read);
}

X11Events::~X11Events() = default;

void X11Events::prepareInput() {
    const auto* extension = xcb_get_extension_data(connection_.get(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0) {
        return;
    }
    // From 2.1 on raw events also come while another program has grabbed the pointer.
    const Owned<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection_.get(), xcb_input_xi_query_version(connection_.get(), 2, 2), nullptr));
    if (version && version->major_version >= 2) {
        inputOpcode_ = extension->major_opcode;
    }
}

void X11Events::watchPresses(bool watch) {
    if (!knowsPresses()) {
        return;
    }
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{};
    selection.head.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
    selection.head.mask_len = 1;
    selection.mask = watch ? XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS : 0;
    xcb_input_xi_select_events(connection_.get(), root_, 1, &selection.head);
    xcb_flush(connection_.get());
}

bool X11Events::hasTray() const {
    return tray_ != XCB_WINDOW_NONE;
}

// Asks who the tray is, and to be told when its window goes.
void X11Events::followTray() {
    const Owned<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection_.get(), xcb_get_selection_owner(connection_.get(), traySelection_), nullptr));
    tray_ = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (tray_ != XCB_WINDOW_NONE) {
        const std::uint32_t structure = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_.get(), tray_, XCB_CW_EVENT_MASK, &structure);
    }
    xcb_flush(connection_.get());
}

void X11Events::read() {
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        handle(*event);
    }
    if (xcb_connection_has_error(connection_.get()) != 0) {
        notifier_->setEnabled(false); // the server is gone; Qt ends the program
    }
}

void X11Events::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentByAnother = 0x80;
    switch (event.response_type & ~sentByAnother) {
    case XCB_CLIENT_MESSAGE: {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type == managerMessage_ && message.data.data32[1] == traySelection_) {
            followTray();
            Q_EMIT trayChanged();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == tray_) {
            followTray();
            Q_EMIT trayChanged();
        }
        break;
    case XCB_GE_GENERIC: {
        const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
        if (generic.extension != inputOpcode_ || generic.event_type != XCB_INPUT_RAW_BUTTON_PRESS) {
            break;
        }
        constexpr std::uint32_t lastButtonThatIsNoWheel = 3;
        if (reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail >
            lastButtonThatIsNoWheel) {
            break;
        }
        // Raw events bear no place.
        const Owned<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(connection_.get(), xcb_query_pointer(connection_.get(), root_), nullptr));
        if (pointer) {
            Q_EMIT pressed(QPoint(pointer->root_x, pointer->root_y));
        }
        break;
    }
    default:
        break;
    }
}

} // namespace brivandel
