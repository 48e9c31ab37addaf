#include "platform/linux/recognition/SoundInput.h"

namespace brivandel {

void SoundInput::process(std::span<const float> samples, double sampleRateHz) {
    if (session_.hasEnded()) {
        return;
    }
    if (sampleRateHz != sampleRateHz_) {
        flush();
        sampleRateHz_ = sampleRateHz;
        resampler_ = Resampler::forRate(sampleRateHz);
    }
    if (!resampler_) {
        session_.fail(QStringLiteral("Sound at %1 samples a second cannot be recognised; %2 to %3 can.")
                          .arg(sampleRateHz)
                          .arg(Resampler::lowestRateHz)
                          .arg(Resampler::highestRateHz));
        return;
    }
    resampled_.clear();
    resampler_->process(samples, resampled_);
    session_.process(resampled_);
}

void SoundInput::flush() {
    if (resampler_) {
        resampled_.clear();
        resampler_->finish(resampled_);
        session_.process(resampled_);
    }
}

void SoundInput::finish(RecognitionSession::Ending ending) {
    flush();
    resampler_.reset();
    sampleRateHz_ = 0;
    session_.finish(ending);
}

} // namespace brivandel
