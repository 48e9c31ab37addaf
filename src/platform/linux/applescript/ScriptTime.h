#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace brivandel::script {

/// The clock of running scripts, and how they wait by it. Any thread.
class ScriptTime {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    virtual ~ScriptTime() = default;
    [[nodiscard]] virtual TimePoint now() const = 0;
    /// Returns at that time, or at once after interrupt(). What the time is then tells nothing about which it
    /// was.
    virtual void waitUntil(TimePoint time) = 0;
    /// Ends every wait, now and later.
    virtual void interrupt() = 0;
};

/// Real time.
class SystemScriptTime final : public ScriptTime {
public:
    [[nodiscard]] TimePoint now() const override { return std::chrono::steady_clock::now(); }
    void waitUntil(TimePoint time) override;
    void interrupt() override;

private:
    std::mutex mutex_;
    std::condition_variable interruption_;
    bool interrupted_ = false;
};

} // namespace brivandel::script
