#pragma once

#include <QFlags>
#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <variant>

namespace brivandel {

/// The modifiers of a key, under their macOS names.
enum class KeyModifier : std::uint8_t { Command = 1, Shift = 2, Option = 4, Control = 8 };
Q_DECLARE_FLAGS(KeyModifiers, KeyModifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(KeyModifiers)

/// How a program is looked for on the display.
struct TargetName {
    enum class By : std::uint8_t { Process, WindowTitle };

    QString text;
    By by = By::Process;

    /// As the user writes it: "title:" before a part of a window's title, anything else is the name of a
    /// process.
    [[nodiscard]] static TargetName fromSetting(const QString& setting);

    bool operator==(const TargetName&) const = default;
};

/// Why no key was sent, or no further one.
struct KeyFailure {
    enum class Kind : std::uint8_t {
        NoDisplay,      ///< detail: what is wrong with it, as a sentence
        NotAllowed,     ///< the display takes no keys from programs; detail: why, as a sentence
        NotRunning,     ///< no program of that name has a window
        TimedOut,       ///< detail: what did not happen, as a sentence
        FocusElsewhere, ///< detail: the program that has the keyboard focus; empty when none has
        DialogOpen,     ///< a dialog of the target waits for an answer; detail: its title
        KeyboardHeld,   ///< a menu, a screen lock or the like holds the keyboard, so that keys would go there
        NoSuchKey,      ///< detail: what cannot be pressed or typed, as a sentence
    };

    Kind kind = Kind::NoDisplay;
    QString detail;

    bool operator==(const KeyFailure&) const = default;
};

/// A program found in one session; it means nothing in another. The same program is the same target, whatever
/// name it was found by.
struct KeyTarget {
    std::uint32_t id = 0;
    bool operator==(const KeyTarget&) const = default;
};

/// Sends keys on behalf of one script. One thread at a time. No call lasts longer than its deadline, whatever
/// the display, the window manager and the target do; a deadline that has passed is a failure of kind
/// TimedOut.
class KeySession {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    virtual ~KeySession() = default;

    [[nodiscard]] virtual std::variant<KeyTarget, KeyFailure> find(const TargetName& name,
                                                                   Deadline deadline) = 0;
    /// Brings a window of the target to the front and returns when it has the keyboard focus.
    [[nodiscard]] virtual std::optional<KeyFailure> raise(KeyTarget target, Deadline deadline) = 0;
    /// The title of the dialog of the target that has to be answered before its other windows take any key,
    /// if one is open.
    [[nodiscard]] virtual std::optional<QString> openDialog(KeyTarget target, Deadline deadline) = 0;
    /// Presses and releases one key, given by its macOS virtual key code. Nothing is sent unless the target
    /// has the keyboard focus at that moment.
    [[nodiscard]] virtual std::optional<KeyFailure> pressKey(KeyTarget target, std::uint16_t virtualKeyCode,
                                                             KeyModifiers modifiers, Deadline deadline) = 0;
    /// Types the characters as they stand in the active keyboard layout, each with the modifiers. Before each
    /// of them the focus is checked as for pressKey, so some of the text may have been typed when it fails.
    [[nodiscard]] virtual std::optional<KeyFailure> typeText(KeyTarget target, const QString& text,
                                                             KeyModifiers modifiers, Deadline deadline) = 0;
};

/// Any thread.
class KeySender {
public:
    virtual ~KeySender() = default;
    [[nodiscard]] virtual std::variant<std::unique_ptr<KeySession>, KeyFailure>
    openSession(KeySession::Deadline deadline) = 0;
};

} // namespace brivandel
