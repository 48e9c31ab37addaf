#pragma once

#include "platform/Platform.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace brivandel {

/// What happened on other threads than the main one. Any thread.
struct ThreadedCounts {
    std::atomic<int> sessions = 0;
    std::atomic<int> blocks = 0;
    std::atomic<int> scripts = 0;
    std::atomic<int> logLines = 0;
};

/// What the sessions of a recogniser hear.
enum class Hearing : std::uint8_t {
    Talk,
    /// Session 1 a command, of which there are three, 2 an error, 3 talk, 4 a command, and so on.
    CommandErrorTalk,
};

/// A platform on the program's own queues, whose sound, results, answers and scripts each come on a thread of
/// their own, as fast as the main queue takes them.
[[nodiscard]] std::unique_ptr<Platform> makeThreadedPlatform(Hearing hearing, ThreadedCounts& counts);

} // namespace brivandel
