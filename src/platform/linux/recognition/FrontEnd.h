#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

struct cmd_ln_s;
struct fe_s;

namespace brivandel {

/// What the acoustic model compares: some coefficients for each 10 ms of sound.
struct Features {
    std::vector<float> values;
    std::size_t coefficientCount = 1;

    /// Where each row begins.
    [[nodiscard]] std::vector<float*> rows();
};

/// Turns sound into features. Any one thread at a time.
class FrontEnd {
public:
    /// After a decoder's configuration; none when the engine refuses it. Resonances that are higher by this
    /// factor than those of the model's training are taken for those: 1 for a speaker of the training, 1.12
    /// for one whose throat is shorter by 12 %.
    [[nodiscard]] static std::unique_ptr<FrontEnd> make(cmd_ln_s* configuration, double resonance);

    /// Of sound that is there as a whole; none of what was heard before has a part in it. They vary little
    /// more than in the model's training.
    [[nodiscard]] Features features(std::span<const std::int16_t> samples);

    /// To be held while the engine makes a front end, a decoder's own too: the factor is one for the whole
    /// process, and asked for until the filters are made.
    [[nodiscard]] static std::unique_lock<std::mutex> lockMaking();

private:
    struct Delete {
        void operator()(fe_s* handle) const;
    };
    using Handle = std::unique_ptr<fe_s, Delete>;

    explicit FrontEnd(Handle handle) : handle_(std::move(handle)) {}

    Handle handle_;
};

} // namespace brivandel
