#pragma once

#include <iosfwd>
#include <string>

namespace brivandel {

/// The program in the status area: starts it, or hands the request of the arguments over to the one that
/// runs already. Returns the process's exit status.
[[nodiscard]] int runBrivandelApp(int& argumentCount, char** arguments, std::ostream& errors);

/// Whether the arguments ask for it, and not for a subcommand of the headless face.
[[nodiscard]] bool isAppRequest(int argumentCount, const char* const* arguments);

/// The options that ask for it, as lines of a help text.
[[nodiscard]] std::string appOptionsHelp();

} // namespace brivandel
