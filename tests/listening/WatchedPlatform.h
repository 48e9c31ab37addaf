#pragma once

#include "platform/scripted/ScriptedPlatform.h"

#include <QVariantMap>

#include <iosfwd>
#include <memory>

namespace brivandel {

/// What a controller holds of its platform at a moment.
struct Holdings {
    int requests = 0;
    int tasks = 0;
    int taps = 0;
    /// Timers that would fire: the one of 45 seconds, and all others.
    int sessionTimers = 0;
    int otherTimers = 0;
    /// Posted, at once or with a delay, and not yet run.
    int posts = 0;
    int delayedPosts = 0;
    bool engineRuns = false;

    bool operator==(const Holdings&) const = default;
};

void PrintTo(const Holdings& holdings, std::ostream* out);

/// A scripted platform that counts what it has given away and not got back.
class WatchedPlatform {
public:
    explicit WatchedPlatform(EventSink sink = {}, const QVariantMap& storedObjects = {});

    [[nodiscard]] Platform& platform() { return *scripted_.platform; }
    /// To play it.
    [[nodiscard]] ScriptedPlatform& scripted() { return scripted_; }
    [[nodiscard]] VirtualMainQueue& mainQueue() { return scripted_.mainQueue; }
    [[nodiscard]] const Holdings& holdings() const { return *holdings_; }

private:
    std::shared_ptr<Holdings> holdings_ = std::make_shared<Holdings>();
    EventSink sink_;
    ScriptedPlatform scripted_;
};

} // namespace brivandel
