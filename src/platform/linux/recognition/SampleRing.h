#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <vector>

namespace brivandel {

/// Carries samples from the one thread that captures to the one that recognises. Neither waits for the other,
/// takes a lock or allocates.
///
/// Invariants:
/// - written_ is changed by the writer only, read_ by the reader only; both count samples since the beginning
/// and wrap
///   around at the width of size_t, which the differences below survive.
/// - read_ <= written_ <= read_ + capacity. Samples in [read_, written_) belong to the reader, the rest to
/// the writer.
/// - A side publishes its counter with release after it is done with the samples, and looks at the other's
/// with acquire
///   before it touches them.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the padding is what keeps the counters apart.
class SampleRing {
public:
    /// Holds at least so many samples.
    explicit SampleRing(std::size_t leastCapacity)
        : samples_(std::bit_ceil(leastCapacity))
        , mask_(samples_.size() - 1) {}

    [[nodiscard]] std::size_t capacity() const { return samples_.size(); }

    /// Writer. Stores sampleAt(0) to sampleAt(count - 1), all or, when there is not enough room, none: false.
    template <typename SampleAt>
    [[nodiscard]] bool write(std::size_t count, SampleAt&& sampleAt) {
        const std::size_t written = written_.load(std::memory_order_relaxed);
        if (count > capacity() - (written - read_.load(std::memory_order_acquire))) {
            return false;
        }
        for (std::size_t i = 0; i < count; ++i) {
            samples_[(written + i) & mask_] = sampleAt(i);
        }
        written_.store(written + count, std::memory_order_release);
        return true;
    }

    /// Reader. Puts what is there, at most room samples, in the place of what out held; out must have that
    /// capacity reserved for this not to allocate.
    void read(std::vector<float>& out, std::size_t room) {
        const std::size_t read = read_.load(std::memory_order_relaxed);
        const std::size_t there = written_.load(std::memory_order_acquire) - read;
        const std::size_t count = there < room ? there : room;
        out.clear();
        for (std::size_t i = 0; i < count; ++i) {
            out.push_back(samples_[(read + i) & mask_]);
        }
        read_.store(read + count, std::memory_order_release);
    }

private:
    std::vector<float> samples_;
    std::size_t mask_;
    // On cache lines of their own: the writer's stores must not slow down the reader's looks at its own
    // counter.
    alignas(64) std::atomic<std::size_t> written_ = 0;
    alignas(64) std::atomic<std::size_t> read_ = 0;
};

} // namespace brivandel
