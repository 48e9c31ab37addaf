#include "platform/linux/recognition/LiveSession.h"

#include <utility>

namespace brivandel {

namespace {

// At 48 kHz 85 ms: a session that is cancelled stops within that much decoding.
constexpr std::size_t samplesPerRead = 4096;

} // namespace

LiveSession::LiveSession(std::shared_ptr<SoundStream> sound, std::shared_ptr<Delivery> delivery,
                         RecognitionSession::Reporting reporting,
                         RecognitionSession::LeaseDecoder leaseDecoder, TimePoint now)
    : sound_(std::move(sound))
    , delivery_(std::move(delivery))
    , input_(RecognitionSession(
          reporting, std::move(leaseDecoder),
          {.deliver = [to = delivery_](const auto& result, const auto& error) { to->deliver(result, error); },
           .judge = [to = delivery_](const UtteranceVerdict& verdict) { to->judge(verdict); }}))
    , lastSound_(now) {
    samples_.reserve(samplesPerRead);
}

bool LiveSession::step(const Clock& clock) {
    // Looked at before the sound is read: what was written before they were set is then there to be read.
    const bool soundHasEnded = sound_->hasEnded();
    if (soundHasEnded && sound_->isAbandoned()) {
        return false;
    }
    const bool dropped = sound_->takeDropped();
    while (delivery_->isOpen() && !input_.hasEnded()) {
        sound_->read(samples_, samplesPerRead);
        if (samples_.empty()) {
            break;
        }
        input_.process(samples_, sound_->sampleRateHz());
        lastSound_ = clock();
    }
    if (dropped) {
        // What there was no room for came after this.
        input_.skip();
    }
    if (!delivery_->isOpen()) {
        return false;
    }
    if (soundHasEnded) {
        input_.finish(RecognitionSession::Ending::CutOff);
    } else if (sound_->otherSampleRateHz() != 0) {
        input_.fail(QStringLiteral("The input changed from %1 to %2 samples a second.")
                        .arg(sound_->sampleRateHz())
                        .arg(sound_->otherSampleRateHz()));
    } else if (clock() - lastSound_ >= starvation) {
        input_.fail(QStringLiteral("No sound arrives from the input."));
    }
    return !input_.hasEnded();
}

} // namespace brivandel
