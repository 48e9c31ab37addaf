#include "platform/linux/recognition/SoundStream.h"

#include "platform/linux/recognition/MonoView.h"
#include "platform/linux/recognition/WakeUp.h"

namespace brivandel {

SoundStream::SoundStream(std::shared_ptr<WakeUp> wakeUp) : ring_(capacity), wakeUp_(std::move(wakeUp)) {}

void SoundStream::append(const AudioBuffer& buffer) {
    const MonoView mono(buffer);
    if (mono.frameCount() == 0 || hasEnded()) {
        return;
    }
    const double rate = sampleRateHz();
    if (rate == 0) {
        sampleRateHz_.store(buffer.sampleRateHz, std::memory_order_release);
    } else if (rate != buffer.sampleRateHz) {
        otherSampleRateHz_.store(buffer.sampleRateHz, std::memory_order_release);
        wakeUp_->wake();
        return;
    }
    if (!ring_.write(mono.frameCount(), [&mono](std::size_t i) { return mono[i]; })) {
        dropped_.store(true, std::memory_order_release);
    }
    wakeUp_->wake();
}

void SoundStream::end() {
    close(State::Ended);
}

void SoundStream::abandon() {
    close(State::Abandoned);
}

void SoundStream::close(State state) {
    State open = State::Open;
    state_.compare_exchange_strong(open, state, std::memory_order_acq_rel);
    wakeUp_->wake();
}

} // namespace brivandel
