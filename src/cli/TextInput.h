#pragma once

#include "cli/CommandLine.h"

#include <string>
#include <variant>

namespace brivandel {

/// The whole of a text: standard input for "-", else a file. Or in words why it cannot be read.
struct TextInputError {
    std::string reason;
};
[[nodiscard]] std::variant<std::string, TextInputError> readTextInput(const std::string& file,
                                                                      const Terminal& terminal);

} // namespace brivandel
