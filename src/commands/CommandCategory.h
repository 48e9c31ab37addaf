#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>

namespace brivandel {

/// How commands are grouped in lists, in the order in which the groups are shown.
enum class CommandCategory : std::uint8_t { transport, recording, editing, looping, metronome, navigation };

inline constexpr std::array allCommandCategories = {
    CommandCategory::transport, CommandCategory::recording, CommandCategory::editing,
    CommandCategory::looping,   CommandCategory::metronome, CommandCategory::navigation,
};

/// The category's title, as in "Transport".
[[nodiscard]] const QString& rawValue(CommandCategory category);

/// The category of exactly this title, if there is one.
[[nodiscard]] std::optional<CommandCategory> commandCategory(QStringView rawValue);

/// How many commands are spoken of as this category's. Navigation has no built-in command but counts the two
/// spoken forms "go to bar N" and "play from bar N".
[[nodiscard]] int commandCount(CommandCategory category);

} // namespace brivandel
