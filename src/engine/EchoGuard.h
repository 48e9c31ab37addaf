#pragma once

#include "platform/MainQueue.h"

#include <QString>

#include <chrono>
#include <optional>

namespace brivandel {

/// Keeps one utterance, which a recogniser reports many times, from being carried out twice: remembers the
/// last command only, and calls it a repeat for four seconds.
class EchoGuard {
public:
    using TimePoint = MainQueue::TimePoint;
    static constexpr std::chrono::seconds echoTime{4};

    /// True when the key is that of the last command and less than the echo time has passed.
    [[nodiscard]] bool isRepeat(const QString& key, TimePoint now) const {
        return last_ && last_->key == key && now - last_->time < echoTime;
    }

    void remember(const QString& key, TimePoint now) { last_ = {key, now}; }

private:
    struct Execution {
        QString key;
        TimePoint time;
    };
    std::optional<Execution> last_;
};

} // namespace brivandel
