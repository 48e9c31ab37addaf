#include "platform/linux/recognition/NoiseSuppressor.h"

#include <speex/speex_preprocess.h>

namespace brivandel {

void NoiseSuppressor::Destroy::operator()(SpeexPreprocessState* state) const {
    speex_preprocess_state_destroy(state);
}

NoiseSuppressor::NoiseSuppressor()
    : state_(speex_preprocess_state_init(static_cast<int>(samplesPerFrame), recognitionRateHz)) {}

void NoiseSuppressor::process(std::span<std::int16_t, samplesPerFrame> frame) {
    speex_preprocess_run(state_.get(), frame.data());
}

} // namespace brivandel
