#pragma once

namespace brivandel {

/// The system's alert sound.
class Beeper {
public:
    virtual ~Beeper() = default;
    /// Main thread; returns at once.
    virtual void beep() = 0;
};

} // namespace brivandel
