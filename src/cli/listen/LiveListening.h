#pragma once

#include "cli/CommandLine.h"

#include <QString>

namespace brivandel {

/// How the microphone is listened to.
struct LiveListeningOptions {
    QString target;
    bool dryRun = false;
    bool json = false;
};

/// Listens to the chosen input until Ctrl-C, and returns the exit status. On a terminal a line at the bottom
/// shows level and status; otherwise there are plain lines only.
[[nodiscard]] int listenLive(const LiveListeningOptions& options, const Terminal& terminal);

} // namespace brivandel
