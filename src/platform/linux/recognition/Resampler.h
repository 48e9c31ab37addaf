#pragma once

#include <memory>
#include <span>
#include <vector>

struct soxr;

namespace brivandel {

/// Brings a stream of samples to the recogniser's 16 kHz, through a filter: without one more than half the
/// words are lost to aliases. Any one thread at a time.
class Resampler {
public:
    static constexpr double lowestRateHz = 8000;
    static constexpr double highestRateHz = 192000;

    /// None when the rate is outside these bounds, or the library refuses it.
    [[nodiscard]] static std::unique_ptr<Resampler> forRate(double inputRateHz);

    /// Appends to out what is ready; some 20 ms stay in the filter.
    void process(std::span<const float> input, std::vector<float>& out);
    /// Appends the rest. Nothing may be processed after it.
    void finish(std::vector<float>& out);

private:
    struct Delete {
        void operator()(soxr* handle) const;
    };
    using Handle = std::unique_ptr<soxr, Delete>;

    Resampler(double inputRateHz, Handle handle);
    void run(const float* input, std::size_t count, std::vector<float>& out);

    double outputPerInput_;
    /// None at 16 kHz: there is nothing to do.
    Handle handle_;
};

} // namespace brivandel
