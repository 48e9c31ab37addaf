#pragma once

#include <QString>

#include <optional>

namespace brivandel {

/// What a start of the program asks of the one that runs: by a hot key, a foot switch or a script.
enum class LaunchRequest {
    None,     ///< just be there; a program that runs already opens its popover
    Toggle,   ///< switch listening on or off
    Popover,  ///< show the popover, or close it
    Settings, ///< show the settings window
    Commands, ///< show the command reference
    Quit,
};

/// The request by which one program tells another: a word.
[[nodiscard]] QString wordFor(LaunchRequest request);
[[nodiscard]] std::optional<LaunchRequest> launchRequestFor(const QString& word);

} // namespace brivandel
