#pragma once

#include "platform/linux/keys/KeySender.h"
#include "platform/linux/keys/X11Activation.h"
#include "platform/linux/keys/X11BorrowedKeys.h"
#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11Keymap.h"
#include "platform/linux/keys/X11Windows.h"

#include <memory>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace brivandel::x11 {

/// A script's own connection to the X display; see KeySession.
class Session final : public KeySession {
public:
    explicit Session(std::unique_ptr<Connection> connection);

    [[nodiscard]] std::variant<KeyTarget, KeyFailure> find(const TargetName& name,
                                                           Deadline deadline) override;
    [[nodiscard]] std::optional<KeyFailure> raise(KeyTarget target, Deadline deadline) override;
    [[nodiscard]] std::optional<QString> openDialog(KeyTarget target, Deadline deadline) override;
    [[nodiscard]] std::optional<KeyFailure> pressKey(KeyTarget target, std::uint16_t virtualKeyCode,
                                                     KeyModifiers modifiers, Deadline deadline) override;
    [[nodiscard]] std::optional<KeyFailure> typeText(KeyTarget target, const QString& text,
                                                     KeyModifiers modifiers, Deadline deadline) override;

private:
    using Press = std::variant<KeyPress, KeyFailure>;

    template <class Choose>
    [[nodiscard]] std::optional<KeyFailure> tap(const WindowOwner& target, Choose choosePress);
    [[nodiscard]] std::optional<KeyFailure> typeCharacters(const WindowOwner& target,
                                                           std::span<const char32_t> characters,
                                                           KeyModifiers modifiers, BorrowedKeys& borrowed,
                                                           Deadline deadline);
    void borrowFor(std::span<const char32_t> characters, BorrowedKeys& borrowed);
    [[nodiscard]] std::optional<KeyFailure> focusFailure(const WindowOwner& target) const;
    [[nodiscard]] bool isKeyboardHeld() const;
    [[nodiscard]] bool refreshKeymap();
    void giveBack(BorrowedKeys& borrowed, Deadline deadline);
    void send(const KeyPress& press) const;

    std::unique_ptr<Connection> connection_;
    Windows windows_;
    Activation activation_;
    std::optional<Keymap> keymap_;
    /// Never shown: asking for the keyboard on behalf of it tells whether somebody else holds that.
    xcb_window_t unseenWindow_;
    std::vector<WindowOwner> targets_;
};

} // namespace brivandel::x11
