#include "platform/linux/keys/X11Windows.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <xcb/res.h>

#include <algorithm>
#include <array>

namespace brivandel::x11 {

namespace {

/// The kernel keeps this many bytes of a process's name (TASK_COMM_LEN less the terminator).
constexpr qsizetype commLength = 15;

/// A dialog of a dialog of a dialog is as deep as programs go; the bound is against windows that point in a
/// circle.
constexpr int maxTransientDepth = 8;

enum class Likeness : std::uint8_t { None, Class, Process };

Likeness likeness(const WindowOwner& owner, const QByteArray& name) {
    if (!owner.comm.isEmpty() && (owner.comm == name.left(commLength) || owner.executable == name)) {
        return Likeness::Process;
    }
    const bool sameClass = owner.className.compare(name, Qt::CaseInsensitive) == 0;
    return owner.instanceName == name || sameClass ? Likeness::Class : Likeness::None;
}

} // namespace

QString WindowOwner::programName() const {
    for (const QByteArray& name :
         {executable.startsWith(comm) ? executable : comm, className, instanceName}) {
        if (!name.isEmpty()) {
            return QString::fromUtf8(name);
        }
    }
    return QStringLiteral("an unknown program");
}

std::optional<WindowOwner> Windows::find(const TargetName& name) const {
    if (name.text.isEmpty()) {
        return std::nullopt;
    }
    std::optional<WindowOwner> byClass;
    for (const xcb_window_t window : programWindows()) {
        if (!isForUse(window)) {
            continue;
        }
        if (name.by == TargetName::By::WindowTitle) {
            if (titleOf(window).contains(name.text, Qt::CaseInsensitive)) {
                return ownerOf(window);
            }
            continue;
        }
        const WindowOwner owner = ownerOf(window);
        switch (likeness(owner, name.text.toUtf8())) {
        case Likeness::Process:
            return owner;
        case Likeness::Class:
            if (!byClass) {
                byClass = owner;
            }
            break;
        case Likeness::None:
            break;
        }
    }
    return byClass;
}

xcb_window_t Windows::topmostWindow(const WindowOwner& target) const {
    const auto windows = programWindows();
    const auto found = std::ranges::find_if(windows, [&](xcb_window_t window) {
        return isForUse(window) && isSameProgram(ownerOf(window), target);
    });
    return found == windows.end() ? static_cast<xcb_window_t>(XCB_NONE) : *found;
}

xcb_window_t Windows::focusedWindow() const {
    auto* const xcb = connection_.xcb();
    const auto focus = reply<xcb_get_input_focus_reply>(xcb, xcb_get_input_focus(xcb));
    if (!focus || focus->focus == XCB_NONE || focus->focus == XCB_INPUT_FOCUS_POINTER_ROOT ||
        focus->focus == connection_.root()) {
        return XCB_NONE;
    }
    return programWindowAround(focus->focus);
}

bool Windows::belongsTo(xcb_window_t window, const WindowOwner& target) const {
    for (int depth = 0; depth < maxTransientDepth && window != XCB_NONE; ++depth) {
        if (isSameProgram(ownerOf(window), target)) {
            return true;
        }
        const auto parent = connection_.property32(window, XCB_ATOM_WM_TRANSIENT_FOR);
        window = parent.empty() ? static_cast<xcb_window_t>(XCB_NONE) : parent.front();
    }
    return false;
}

bool Windows::isSameProgram(const WindowOwner& owner, const WindowOwner& target) {
    if (owner.window == target.window || (owner.pid != 0 && owner.pid == target.pid)) {
        return true;
    }
    return owner.clientLeader != XCB_NONE && owner.clientLeader == target.clientLeader &&
           !owner.className.isEmpty() && owner.className == target.className;
}

/// It need not have the focus: toolkits hand the keys of a program's other windows on to it.
xcb_window_t Windows::modalWindow(const WindowOwner& target) const {
    const auto windows = programWindows();
    const auto found = std::ranges::find_if(windows, [&](xcb_window_t window) {
        return isModal(window) && isViewable(window) && belongsTo(window, target);
    });
    return found == windows.end() ? static_cast<xcb_window_t>(XCB_NONE) : *found;
}

/// Programs say so themselves, and window managers keep it.
bool Windows::isModal(xcb_window_t window) const {
    constexpr std::uint32_t maxStateCount = 32;
    const auto states = connection_.property32(window, connection_.atom(Atom::NetWmState), maxStateCount);
    return std::ranges::find(states, connection_.atom(Atom::NetWmStateModal)) != states.end();
}

WindowOwner Windows::ownerOf(xcb_window_t window) const {
    WindowOwner owner;
    owner.window = window;
    owner.pid = pidOf(window);
    if (owner.pid != 0) {
        const QString process = QStringLiteral("/proc/%1").arg(owner.pid);
        QFile comm(process + QStringLiteral("/comm"));
        if (comm.open(QIODevice::ReadOnly)) {
            owner.comm = comm.readAll().trimmed();
        }
        owner.executable =
            QFileInfo(QFile::symLinkTarget(process + QStringLiteral("/exe"))).fileName().toUtf8();
    }
    const auto names = connection_.propertyBytes(window, XCB_ATOM_WM_CLASS).split('\0');
    owner.instanceName = names.value(0);
    owner.className = names.value(1);
    const auto leader = connection_.property32(window, connection_.atom(Atom::WmClientLeader));
    owner.clientLeader = leader.empty() ? static_cast<xcb_window_t>(XCB_NONE) : leader.front();
    return owner;
}

/// The server knows the process at the other end of a window's connection, also for a program in a container,
/// which writes a number of its own into _NET_WM_PID. A window of another machine has no process here.
qint64 Windows::pidOf(xcb_window_t window) const {
    const QByteArray machine = connection_.propertyBytes(window, connection_.atom(Atom::WmClientMachine));
    const QByteArray here = QSysInfo::machineHostName().toLocal8Bit();
    if (!machine.isEmpty() && machine != "localhost" &&
        machine.split('.').front() != here.split('.').front()) {
        return 0;
    }
    const xcb_res_client_id_spec_t spec{.client = window, .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    auto* const xcb = connection_.xcb();
    const auto* const extension = xcb_get_extension_data(xcb, &xcb_res_id);
    if (extension != nullptr && extension->present != 0) {
        const auto ids = reply<xcb_res_query_client_ids_reply>(xcb, xcb_res_query_client_ids(xcb, 1, &spec));
        if (ids && ids->num_ids > 0) {
            const auto id = xcb_res_query_client_ids_ids_iterator(ids.get());
            if (xcb_res_client_id_value_value_length(id.data) > 0) {
                return *xcb_res_client_id_value_value(id.data);
            }
        }
    }
    const auto pid = connection_.property32(window, connection_.atom(Atom::NetWmPid));
    return pid.empty() ? 0 : pid.front();
}

QString Windows::titleOf(xcb_window_t window) const {
    const QByteArray title = connection_.propertyBytes(window, connection_.atom(Atom::NetWmName));
    return title.isEmpty() ? QString::fromLatin1(connection_.propertyBytes(window, XCB_ATOM_WM_NAME))
                           : QString::fromUtf8(title);
}

std::optional<QString> Windows::windowManagerName() const {
    const xcb_atom_t check = connection_.atom(Atom::NetSupportingWmCheck);
    const auto window = connection_.property32(connection_.root(), check);
    // A window manager that died leaves the root's property behind, but its own window went with it.
    if (window.empty() || connection_.property32(window.front(), check) != window) {
        return std::nullopt;
    }
    return titleOf(window.front());
}

bool Windows::exists(xcb_window_t window) const {
    auto* const xcb = connection_.xcb();
    return reply<xcb_get_window_attributes_reply>(xcb, xcb_get_window_attributes(xcb, window)) != nullptr;
}

bool Windows::isViewable(xcb_window_t window) const {
    auto* const xcb = connection_.xcb();
    const auto attributes =
        reply<xcb_get_window_attributes_reply>(xcb, xcb_get_window_attributes(xcb, window));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::vector<xcb_window_t> Windows::programWindows() const {
    constexpr std::uint32_t maxWindowCount = 4096;
    std::vector<xcb_window_t> windows;
    if (windowManagerName()) {
        windows = connection_.property32(connection_.root(), connection_.atom(Atom::NetClientListStacking),
                                         maxWindowCount);
    } else {
        auto* const xcb = connection_.xcb();
        const auto tree = reply<xcb_query_tree_reply>(xcb, xcb_query_tree(xcb, connection_.root()));
        if (tree) {
            const auto* const children = xcb_query_tree_children(tree.get());
            std::copy_if(children, children + xcb_query_tree_children_length(tree.get()),
                         std::back_inserter(windows), [&](xcb_window_t window) {
                             return !connection_.propertyBytes(window, XCB_ATOM_WM_CLASS).isEmpty();
                         });
        }
    }
    std::ranges::reverse(windows);
    return windows;
}

/// Panels and the like are windows of programs, but nobody works in them.
bool Windows::isForUse(xcb_window_t window) const {
    const auto type = connection_.property32(window, connection_.atom(Atom::NetWmWindowType));
    constexpr std::array decorations{Atom::NetWmWindowTypeDesktop, Atom::NetWmWindowTypeDock,
                                     Atom::NetWmWindowTypeNotification};
    return type.empty() || std::ranges::none_of(decorations, [&](Atom decoration) {
               return connection_.atom(decoration) == type.front();
           });
}

/// The focus is often in a part of a program's window. The window manager marks the whole with WM_STATE;
/// without one, it is the outermost that has a WM_CLASS.
xcb_window_t Windows::programWindowAround(xcb_window_t window) const {
    auto* const xcb = connection_.xcb();
    xcb_window_t found = window;
    while (window != XCB_NONE && window != connection_.root()) {
        if (!connection_.property32(window, connection_.atom(Atom::WmState)).empty()) {
            return window;
        }
        if (!connection_.propertyBytes(window, XCB_ATOM_WM_CLASS).isEmpty()) {
            found = window;
        }
        const auto tree = reply<xcb_query_tree_reply>(xcb, xcb_query_tree(xcb, window));
        window = tree ? tree->parent : static_cast<xcb_window_t>(XCB_NONE);
    }
    return found;
}

} // namespace brivandel::x11
