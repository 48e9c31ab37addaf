#pragma once

#include "platform/MainQueue.h"
#include "platform/linux/recognition/Delivery.h"
#include "platform/linux/recognition/RecognitionSession.h"
#include "platform/linux/recognition/SoundInput.h"
#include "platform/linux/recognition/SoundStream.h"

#include <memory>
#include <vector>

namespace brivandel {

/// A session over sound that is being captured. It sees to what only a clock can tell: that sound has stopped
/// coming, or never came. It reads no clock; the recogniser's thread, which alone uses it, tells it the time.
class LiveSession {
public:
    using TimePoint = MainQueue::TimePoint;

    /// Capture that delivers nothing for so long has died, though nobody said so.
    static constexpr std::chrono::seconds starvation{1};

    LiveSession(std::shared_ptr<SoundStream> sound, std::shared_ptr<Delivery> delivery,
                RecognitionSession::Reporting reporting, RecognitionSession::LeaseDecoder leaseDecoder,
                TimePoint now);

    /// Recognises what has come by now. False when the session is over, or nobody listens any more.
    bool step(TimePoint now);

    /// When step() must be called at the latest, whether sound came or not.
    [[nodiscard]] TimePoint deadline() const { return lastSound_ + starvation; }

private:
    std::shared_ptr<SoundStream> sound_;
    std::shared_ptr<Delivery> delivery_;
    SoundInput input_;
    TimePoint lastSound_;
    std::vector<float> samples_;
};

} // namespace brivandel
