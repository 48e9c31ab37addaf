#pragma once

#include "platform/linux/applescript/Script.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace brivandel::script {

/// A key press as scripts write it.
using Press = std::variant<Keystroke, KeyCode>;

/// What a workstation is sent: key presses, and waits between them.
using Step = std::variant<Delay, Keystroke, KeyCode>;
using Steps = std::vector<Step>;

/// The workstation has nothing of the kind; why, as a sentence.
struct NothingOfTheKind {
    QString sentence;
    bool operator==(const NothingOfTheKind&) const = default;
};

/// What stands in a step's text where the number of the bar is typed.
inline constexpr QStringView barPlaceholder = u"{bar}";

/// Up to which bar a workstation can be told to go.
struct LastBar {
    std::uint64_t number = 0;
    /// Of a bar above it: why not, as a sentence.
    QString beyond;
    bool operator==(const LastBar&) const = default;
};

/// How a bar is gone to, from a workstation that has the keyboard.
struct BarSteps {
    Steps goTo;
    Steps thenPlay;
    /// The highest bar that the steps reach, and what to say of those above; none: they reach all.
    std::optional<LastBar> last = std::nullopt;
    bool operator==(const BarSteps&) const = default;
};

/// The keys of a workstation that differ from those that scripts press. A press that is not in it is sent as
/// it stands.
struct KeyTable {
    std::vector<std::pair<Press, std::variant<Steps, NothingOfTheKind>>> presses;
    /// None: the script's own steps are sent, each translated as a press.
    std::optional<std::variant<BarSteps, NothingOfTheKind>> bar;
};

} // namespace brivandel::script
