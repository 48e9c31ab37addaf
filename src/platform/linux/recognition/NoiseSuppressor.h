#pragma once

#include "platform/linux/recognition/RecognitionFormat.h"

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

    /// In place. What comes out is the frame before.
    void process(std::span<std::int16_t, samplesPerFrame> frame);

private:
    struct Destroy {
        void operator()(SpeexPreprocessState_* state) const;
    };
    std::unique_ptr<SpeexPreprocessState_, Destroy> state_;
};

} // namespace brivandel
