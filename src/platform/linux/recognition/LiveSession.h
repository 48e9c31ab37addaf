#pragma once

#include "platform/MainQueue.h"
#include "platform/linux/recognition/Delivery.h"
#include "platform/linux/recognition/RecognitionSession.h"
#include "platform/linux/recognition/SoundInput.h"
#include "platform/linux/recognition/SoundStream.h"

#include <functional>
#include <memory>
#include <vector>

namespace brivandel {

/// A session over sound that is being captured. It sees to what only a clock can tell: that sound has stopped
/// coming, or never came. The recogniser's thread alone uses it.
class LiveSession {
public:
    using TimePoint = MainQueue::TimePoint;
    using Clock = std::function<TimePoint()>;

    /// Capture that delivers nothing for so long has died, though nobody said so.
    static constexpr std::chrono::seconds starvation{1};

    LiveSession(std::shared_ptr<SoundStream> sound, std::shared_ptr<Delivery> delivery,
                RecognitionSession::Reporting reporting, RecognitionSession::LeaseDecoder leaseDecoder,
                TimePoint now);

    /// Recognises what has come by now. False when the session is over, or nobody listens any more.
    bool step(const Clock& clock);

    /// When step() must be called at the latest, whether sound came or not.
    [[nodiscard]] TimePoint deadline() const { return lastSound_ + starvation; }

private:
    std::shared_ptr<SoundStream> sound_;
    std::shared_ptr<Delivery> delivery_;
    SoundInput input_;
    /// When all sound that had come was recognised. Recognising can take longer than starvation, and sound
    /// that came meanwhile was not missing.
    TimePoint lastSound_;
    std::vector<float> samples_;
};

} // namespace brivandel
