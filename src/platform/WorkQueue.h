#pragma once

#include <functional>

namespace brivandel {

/// Runs work off the main thread, at the priority of something that the user waits for.
class WorkQueue {
public:
    virtual ~WorkQueue() = default;
    /// Any thread. Two pieces of work may run at once; a piece that is slow holds up no other.
    virtual void run(std::function<void()> work) = 0;
};

} // namespace brivandel
