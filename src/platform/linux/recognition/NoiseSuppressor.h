#pragma once

#include <cstdint>
#include <memory>
#include <span>

struct SpeexPreprocessState_;

namespace brivandel {

/// Takes steady noise out of sound at recognitionRateHz: a fan, a hiss, an amplifier. It learns the noise
/// from what it is given, in a second or two. Any one thread at a time.
class NoiseSuppressor {
public:
    NoiseSuppressor();

    /// In place; whole frames of 10 ms. What comes out is one frame late.
    void process(std::span<std::int16_t> samples);

private:
    struct Destroy {
        void operator()(SpeexPreprocessState_* state) const;
    };
    std::unique_ptr<SpeexPreprocessState_, Destroy> state_;
};

/// Whether there is so much noise between and beside the words, and so steady, that they are understood
/// better without it. Where there is less, the suppression takes more from the words than from the noise; and
/// of music it takes the long notes, and lets the others stand out.
[[nodiscard]] bool isInSteadyNoise(std::span<const std::int16_t> words);

} // namespace brivandel
