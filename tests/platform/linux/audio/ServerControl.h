#pragma once

#include "platform/linux/audio/PulseAudioContext.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace brivandel {

/// Runs pactl to its end and returns what it printed; fails the test when it fails.
QString pactl(const QStringList& arguments);

/// The server's number of the recording that this program makes; empty when there is none.
[[nodiscard]] QString recordingOfThisProgram();

/// Takes the server of script/with-audio-server down as a crash would, and brings it back, ready.
void stopServer();
void startServer();

/// Has the server hang, and go on.
void freezeServer();
void thawServer();

/// Plugs in a microphone that hears a monitor; returns the module to unload to unplug it.
[[nodiscard]] QString plugInMicrophone(const QString& name, const QString& master);
void unplug(const QString& module);

/// Waits for what a context hears from its server.
class ContextWatch {
public:
    explicit ContextWatch(PulseAudioContext& context);

    /// Whether the condition came true in time.
    [[nodiscard]] bool waitUntil(const std::function<bool(const AudioServer&)>& condition,
                                 std::chrono::milliseconds patience = std::chrono::seconds(10));

private:
    PulseAudioContext& context_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t changeCount_ = 0;
    std::unique_ptr<PulseAudioContext::Subscription> subscription_;
};

} // namespace brivandel
