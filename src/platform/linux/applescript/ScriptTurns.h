#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace brivandel::script {

/// Whose turn it is to press keys, in the order of asking: what was said first is done first, and the keys of
/// two scripts never mix. Any thread.
class ScriptTurns {
public:
    /// A turn; destroying it hands the keyboard to the next.
    class Turn {
    public:
        Turn(Turn&& other) noexcept;
        Turn& operator=(Turn&&) = delete;
        ~Turn();

    private:
        friend class ScriptTurns;
        explicit Turn(ScriptTurns* turns) : turns_(turns) {}
        ScriptTurns* turns_;
    };

    /// Waits for a turn; none when it did not come within that time, or after close().
    [[nodiscard]] std::optional<Turn> take(std::chrono::nanoseconds patience);
    /// No turn is given any more.
    void close();

private:
    void release();

    std::mutex mutex_;
    std::condition_variable changed_;
    /// The tickets of those who hold or wait; the first holds.
    std::deque<unsigned> queue_;
    unsigned nextTicket_ = 0;
    bool closed_ = false;
};

} // namespace brivandel::script
