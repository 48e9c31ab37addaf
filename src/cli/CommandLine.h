#pragma once

#include <iosfwd>
#include <string>

namespace brivandel {

/// Where a run of the headless face reads and writes.
struct Terminal {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

/// Exit statuses of every subcommand.
enum ExitStatus : int {
    success = 0,
    failure = 1,  ///< what was asked for did not come about
    badUsage = 2, ///< the call, or a scenario, is not of the form that is understood
};

/// Runs a subcommand and returns the process's exit status. otherOptions: what else the program can be asked,
/// for the end of its help.
[[nodiscard]] int runCommandLine(int argumentCount, const char* const* arguments, const Terminal& terminal,
                                 const std::string& otherOptions = {});

} // namespace brivandel
