#pragma once

#include "platform/AudioFormat.h"
#include "platform/linux/recognition/SampleRing.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace brivandel {

class WakeUp;

/// The sound of one session on its way from the audio thread to the recogniser's thread.
class SoundStream {
public:
    /// Enough for five seconds at 48 kHz: for as long as loading the models may take.
    static constexpr std::size_t capacity = std::size_t{1} << 18;

    explicit SoundStream(std::shared_ptr<WakeUp> wakeUp);

    /// Audio thread: mixes to mono, copies and returns; takes no lock, allocates nothing. A block that finds
    /// no room is dropped as a whole.
    void append(const AudioBuffer& buffer);
    /// No more sound will come. Any thread.
    void end();
    /// Nobody is there any more who could append, or has a use for what was appended; an end that was told
    /// before stands. Any thread; takes no lock.
    void abandon();

    /// What came since the last call, at most so many samples. Recogniser's thread, as all below.
    void read(std::vector<float>& out, std::size_t room) { ring_.read(out, room); }
    /// Once true, all sound has been written.
    [[nodiscard]] bool hasEnded() const { return state_.load(std::memory_order_acquire) != State::Open; }
    [[nodiscard]] bool isAbandoned() const {
        return state_.load(std::memory_order_acquire) == State::Abandoned;
    }
    /// Whether a block was dropped since the last call.
    [[nodiscard]] bool takeDropped() { return dropped_.exchange(false, std::memory_order_acq_rel); }
    /// Of the first block; 0 before it.
    [[nodiscard]] double sampleRateHz() const { return sampleRateHz_.load(std::memory_order_acquire); }
    /// The rate that a later block had instead, and which ended the stream; 0 if none had.
    [[nodiscard]] double otherSampleRateHz() const {
        return otherSampleRateHz_.load(std::memory_order_acquire);
    }

private:
    enum class State : std::uint8_t { Open, Ended, Abandoned };

    void close(State state);

    SampleRing ring_;
    std::shared_ptr<WakeUp> wakeUp_;
    // Written by the audio thread alone, once each.
    std::atomic<double> sampleRateHz_ = 0;
    std::atomic<double> otherSampleRateHz_ = 0;
    // Set by the audio thread, cleared by the recogniser's.
    std::atomic<bool> dropped_ = false;
    // Leaves Open once, by any thread.
    std::atomic<State> state_ = State::Open;
};

static_assert(std::atomic<double>::is_always_lock_free);

} // namespace brivandel
