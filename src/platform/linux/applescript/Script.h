#pragma once

#include "platform/linux/keys/KeySender.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <variant>
#include <vector>

// The tree of a script. What may stand where is in the types: a tree that exists can be run.
namespace brivandel::script {

/// A stretch of the source, in UTF-16 units.
struct SourceRange {
    qsizetype location = 0;
    qsizetype length = 0;

    bool operator==(const SourceRange&) const = default;
};

/// A statement and where it stands.
template <class Action>
struct Statement {
    Action action;
    SourceRange range;

    bool operator==(const Statement&) const = default;
};

/// activate
struct Activate {
    bool operator==(const Activate&) const = default;
};

/// set frontmost to true
struct SetFrontmost {
    bool operator==(const SetFrontmost&) const = default;
};

/// delay 0.3
struct Delay {
    std::chrono::milliseconds duration{0};
    bool operator==(const Delay&) const = default;
};

/// keystroke "r" using {command down}
struct Keystroke {
    QString text;
    KeyModifiers modifiers;
    bool operator==(const Keystroke&) const = default;
};

/// key code 49 using {shift down}
struct KeyCode {
    std::uint16_t virtualKeyCode = 0;
    KeyModifiers modifiers;
    bool operator==(const KeyCode&) const = default;
};

using ProcessStatement = Statement<std::variant<SetFrontmost, Delay, Keystroke, KeyCode>>;

/// tell process "P" … end tell
struct TellProcess {
    QString process;
    std::vector<ProcessStatement> body;
    bool operator==(const TellProcess&) const = default;
};

using SystemEventsStatement = Statement<std::variant<TellProcess, Delay, Keystroke, KeyCode>>;

/// tell application "System Events" … end tell
struct TellSystemEvents {
    std::vector<SystemEventsStatement> body;
    bool operator==(const TellSystemEvents&) const = default;
};

using ApplicationStatement = Statement<std::variant<Activate, Delay>>;

/// tell application "A" … end tell, and tell application "A" to activate
struct TellApplication {
    QString application;
    std::vector<ApplicationStatement> body;
    bool operator==(const TellApplication&) const = default;
};

using TopStatement = Statement<std::variant<TellSystemEvents, TellApplication, Delay, Keystroke, KeyCode>>;

struct Script {
    std::vector<TopStatement> body;
    bool operator==(const Script&) const = default;
};

} // namespace brivandel::script
