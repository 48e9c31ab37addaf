#include "platform/linux/keys/X11KeySession.h"

#include "platform/linux/keys/X11HeldKeys.h"

#include <QList>

#include <algorithm>
#include <chrono>
#include <utility>

namespace brivandel::x11 {

namespace {

/// Nobody else's request is carried out while one of these lives: the focus cannot move between a look at it
/// and the key that depends on it.
class ServerGrab {
public:
    explicit ServerGrab(const Connection& connection) : connection_(connection) {
        xcb_grab_server(connection_.xcb());
    }
    ~ServerGrab() {
        xcb_ungrab_server(connection_.xcb());
        connection_.sync();
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;

private:
    const Connection& connection_;
};

/// How long a program may take to handle the keys that were borrowed for it. One that is slower, or knows no
/// pings, may miss a character that its user's own keyboard could not type either.
constexpr std::chrono::seconds handlingPatience{1};

/// Kept of the time for a text, so that borrowed keys are put back before the connection is given up.
constexpr std::chrono::milliseconds puttingBackTime{200};

KeyFailure noSuchKey(const QString& sentence) {
    return {KeyFailure::Kind::NoSuchKey, sentence};
}

} // namespace

Session::Session(std::unique_ptr<Connection> connection)
    : connection_(std::move(connection))
    , windows_(*connection_)
    , activation_(*connection_, windows_)
    , unseenWindow_(xcb_generate_id(connection_->xcb())) {
    xcb_create_window(connection_->xcb(), XCB_COPY_FROM_PARENT, unseenWindow_, connection_->root(), 0, 0, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

std::variant<KeyTarget, KeyFailure> Session::find(const TargetName& name, Deadline deadline) {
    const Connection::Bound bound(*connection_, deadline);
    auto owner = windows_.find(name);
    if (auto failure = connection_->lost(deadline)) {
        return std::move(*failure);
    }
    if (!owner) {
        return KeyFailure{KeyFailure::Kind::NotRunning, {}};
    }
    const auto known = std::ranges::find_if(
        targets_, [&](const WindowOwner& target) { return Windows::isSameProgram(*owner, target); });
    const auto index = known - targets_.begin();
    if (known == targets_.end()) {
        targets_.push_back(std::move(*owner));
    }
    return KeyTarget{.id = static_cast<std::uint32_t>(index)};
}

std::optional<KeyFailure> Session::raise(KeyTarget target, Deadline deadline) {
    const Connection::Bound bound(*connection_, deadline);
    auto failure = activation_.bringToFront(targets_.at(target.id), deadline);
    auto lost = connection_->lost(deadline);
    return lost ? lost : failure;
}

std::optional<QString> Session::openDialog(KeyTarget target, Deadline deadline) {
    const Connection::Bound bound(*connection_, deadline);
    const xcb_window_t dialog = windows_.modalWindow(targets_.at(target.id));
    return dialog == XCB_NONE ? std::nullopt : std::optional(windows_.titleOf(dialog));
}

std::optional<KeyFailure> Session::pressKey(KeyTarget target, std::uint16_t virtualKeyCode,
                                            KeyModifiers modifiers, Deadline deadline) {
    const Connection::Bound bound(*connection_, deadline);
    auto failure = tap(targets_.at(target.id), [&](const Keymap& keymap) -> Press {
        if (auto press = keymap.pressForKeyCode(virtualKeyCode, modifiers)) {
            return std::move(*press);
        }
        return noSuchKey(QStringLiteral("This keyboard has no key with the code %1.").arg(virtualKeyCode));
    });
    auto lost = connection_->lost(deadline);
    return lost ? lost : failure;
}

std::optional<KeyFailure> Session::typeText(KeyTarget target, const QString& text, KeyModifiers modifiers,
                                            Deadline deadline) {
    const Connection::Bound bound(*connection_, deadline);
    BorrowedKeys borrowed(*connection_);
    const auto characters = text.toUcs4();
    std::vector<char32_t> toType(characters.begin(), characters.end());
    // Of the characters that end lines, the keyboard has one.
    std::ranges::replace(toType, U'\n', U'\r');
    const Deadline typingEnd = deadline - puttingBackTime;
    auto failure = typeCharacters(targets_.at(target.id), toType, modifiers, borrowed, typingEnd);
    giveBack(borrowed, typingEnd);
    auto lost = connection_->lost(deadline);
    return lost ? lost : failure;
}

std::optional<KeyFailure> Session::typeCharacters(const WindowOwner& target,
                                                  std::span<const char32_t> characters,
                                                  KeyModifiers modifiers, BorrowedKeys& borrowed,
                                                  Deadline deadline) {
    for (; !characters.empty(); characters = characters.subspan(1)) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return KeyFailure{KeyFailure::Kind::TimedOut, {}};
        }
        const auto type = [&] {
            return tap(target, [&](const Keymap& keymap) -> Press {
                if (auto press = keymap.pressForCharacter(characters.front(), modifiers)) {
                    return std::move(*press);
                }
                return noSuchKey(
                    QStringLiteral("“%1” can’t be typed.").arg(QString::fromUcs4(characters.data(), 1)));
            });
        };
        auto failure = type();
        if (failure && failure->kind == KeyFailure::Kind::NoSuchKey) {
            // Keys lent to characters before this one are free again once those have arrived.
            giveBack(borrowed, deadline);
            borrowFor(characters, borrowed);
            failure = type();
        }
        if (failure) {
            return failure;
        }
    }
    return std::nullopt;
}

/// For all that is still to be typed and that the layout lacks, each character once.
void Session::borrowFor(std::span<const char32_t> characters, BorrowedKeys& borrowed) {
    if (!refreshKeymap()) {
        return;
    }
    std::vector<char32_t> missing;
    for (const char32_t character : characters) {
        if (!keymap_->pressForCharacter(character, {}) &&
            std::ranges::find(missing, character) == missing.end()) {
            missing.push_back(character);
        }
    }
    borrowed.borrow(*keymap_, missing);
}

void Session::giveBack(BorrowedKeys& borrowed, Deadline deadline) {
    if (borrowed.isEmpty()) {
        return;
    }
    if (const xcb_window_t receiver = windows_.focusedWindow(); receiver != XCB_NONE) {
        (void)waitUntilHandled(*connection_, receiver,
                               std::min(deadline, std::chrono::steady_clock::now() + handlingPatience));
    }
    borrowed.putBack();
}

/// One key, from the look at the focus to its release, without anybody else's doing anything in between.
template <class Choose>
std::optional<KeyFailure> Session::tap(const WindowOwner& target, Choose choosePress) {
    if (!connection_->hasXTest()) {
        return KeyFailure{
            KeyFailure::Kind::NotAllowed,
            QStringLiteral("The X display takes no keys from programs (it has no XTEST extension).")};
    }
    const ServerGrab grab(*connection_);
    if (auto failure = focusFailure(target)) {
        return failure;
    }
    LiftedModifiers lifted(*connection_);
    if (!refreshKeymap()) {
        return KeyFailure{KeyFailure::Kind::NoDisplay,
                          QStringLiteral("The X display does not tell its keyboard layout.")};
    }
    lifted.leaveOut(*keymap_);
    Press chosen = choosePress(*keymap_);
    if (auto* const failure = std::get_if<KeyFailure>(&chosen)) {
        return std::move(*failure);
    }
    const KeyPress& press = std::get<KeyPress>(chosen);
    lifted.liftForGood(press.key);
    const SteadiedLocks locks(*connection_, *keymap_, press.needsNumLock);
    send(press);
    return std::nullopt;
}

void Session::send(const KeyPress& press) const {
    for (const xcb_keycode_t key : press.held) {
        fakeKey(*connection_, key, true);
    }
    fakeKey(*connection_, press.key, true);
    fakeKey(*connection_, press.key, false);
    std::for_each(press.held.rbegin(), press.held.rend(),
                  [this](xcb_keycode_t key) { fakeKey(*connection_, key, false); });
}

std::optional<KeyFailure> Session::focusFailure(const WindowOwner& target) const {
    const xcb_window_t focused = windows_.focusedWindow();
    if (focused == XCB_NONE) {
        return KeyFailure{KeyFailure::Kind::FocusElsewhere, {}};
    }
    if (!windows_.belongsTo(focused, target)) {
        return KeyFailure{KeyFailure::Kind::FocusElsewhere, windows_.ownerOf(focused).programName()};
    }
    if (isKeyboardHeld()) {
        return KeyFailure{KeyFailure::Kind::KeyboardHeld, {}};
    }
    return std::nullopt;
}

/// The server looks for another holder before it finds that this window cannot have the keyboard, as it is
/// not shown.
bool Session::isKeyboardHeld() const {
    auto* const xcb = connection_->xcb();
    const auto answer =
        reply<xcb_grab_keyboard_reply>(xcb, xcb_grab_keyboard(xcb, 0, unseenWindow_, XCB_CURRENT_TIME,
                                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    return answer && answer->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

/// Read again only after a change: reading takes longer than all else about a key.
bool Session::refreshKeymap() {
    connection_->drainEvents();
    if (connection_->takeKeymapChange() || !keymap_) {
        keymap_ = Keymap::read(*connection_);
    }
    return keymap_.has_value();
}

} // namespace brivandel::x11
