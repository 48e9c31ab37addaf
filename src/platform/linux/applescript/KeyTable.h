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

/// What stands in a step's text where the number of the bar is typed. "{bar:3}" fills it up with zeros to
/// three places, for a clock that keeps the digits over which nothing is typed.
inline constexpr QStringView barPlaceholder = u"{bar}";

/// The text with the number of the bar in each placeholder's place.
[[nodiscard]] QString withBarNumber(const QString& text, const QString& number);

/// Whether there is a placeholder in the text.
[[nodiscard]] bool namesBarNumber(const QString& text);

/// To which bars a workstation can be told to go.
struct BarRange {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    /// Of any other bar: why not, as a sentence.
    QString beyond;
    bool operator==(const BarRange&) const = default;

    /// False of what is too large to be a number at all.
    [[nodiscard]] bool holds(const QString& number) const;
};

/// How a bar is gone to, from a workstation that has the keyboard.
struct BarSteps {
    Steps goTo;
    Steps thenPlay;
    /// The bars that the steps reach, and what to say of others; none: they reach all.
    std::optional<BarRange> range = std::nullopt;
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
