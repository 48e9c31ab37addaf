#pragma once

#include "platform/linux/audio/AudioServer.h"
#include "platform/linux/audio/LoopTimer.h"
#include "platform/linux/audio/PulseAudioLoop.h"

#include <pulse/context.h>
#include <pulse/introspect.h>

#include <chrono>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>

namespace brivandel {

/// The one connection to the sound server (PulseAudio, or PipeWire, which speaks its protocol). It stays up,
/// comes back by itself after the server went, and keeps what the server offers up to date, so that asking
/// costs nothing.
class PulseAudioContext {
public:
    /// Called on the loop's thread, under its lock: post and return; nothing of this class may be called.
    using Observer = std::function<void()>;

    /// Ends the observing when destroyed; before the context is. Not on the loop's thread.
    class Subscription {
    public:
        Subscription(PulseAudioContext& context, std::list<Observer>::iterator observer);
        ~Subscription();
        Subscription(const Subscription&) = delete;
        Subscription& operator=(const Subscription&) = delete;

    private:
        PulseAudioContext& context_;
        std::list<Observer>::iterator observer_;
    };

    /// The very first answer of a server may take this long; it mostly takes 5 ms, and is asked for at
    /// construction.
    static constexpr std::chrono::milliseconds firstPatience{300};
    /// Later on the caller has other things to do.
    static constexpr std::chrono::milliseconds laterPatience{40};
    /// How often a server that is not there is looked for.
    static constexpr std::chrono::milliseconds retryInterval{500};

    /// Begins to connect, and returns.
    PulseAudioContext();
    ~PulseAudioContext();
    PulseAudioContext(const PulseAudioContext&) = delete;
    PulseAudioContext& operator=(const PulseAudioContext&) = delete;

    /// What the server offers now. Waits, no longer than the patience above, only while there is no
    /// connection. Any thread but the loop's.
    [[nodiscard]] AudioServer server();
    /// Has the observer called whenever what server() tells has changed: a device or the server came, went or
    /// changed, or another source is the default.
    [[nodiscard]] std::unique_ptr<Subscription> observe(Observer changed);

    /// For the classes that capture; each of these under the lock.
    [[nodiscard]] PulseAudioLoop& loop() { return loop_; }
    /// As server(), with the lock held.
    [[nodiscard]] const AudioServer& awaitServer(const PulseAudioLoop::Lock& lock);
    /// As it was last heard of.
    [[nodiscard]] const AudioServer& knownServer() const { return server_; }
    /// None for an identifier that was never given out.
    [[nodiscard]] std::optional<QString> uidForDeviceID(AudioDeviceID deviceID) const;
    /// Null while there is none.
    [[nodiscard]] pa_context* native() const { return context_.get(); }

private:
    struct Release {
        void operator()(pa_context* context) const;
    };

    void connect();
    void contextStateChanged();
    void connectionLost(int error);
    void refresh();
    void addIncoming(const pa_source_info& info);
    void incomingComplete();
    void publish(AudioServer server);
    AudioDeviceID deviceIDForUID(const QString& uid);

    PulseAudioLoop loop_;
    // All below is guarded by the loop's lock.
    LoopTimer retry_;
    std::unique_ptr<pa_context, Release> context_;
    AudioServer server_;
    bool isFirstWait_ = true;
    /// The lists as they come in; published together.
    AudioServer incoming_;
    bool isRefreshing_ = false;
    bool changedMeanwhile_ = false;
    std::map<QString, AudioDeviceID> deviceIDs_;
    std::list<Observer> observers_;
};

} // namespace brivandel
