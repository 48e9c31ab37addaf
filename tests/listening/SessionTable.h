#pragma once

#include "listening/WatchedPlatform.h"
#include "platform/MainQueue.h"

#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string_view>

namespace brivandel {

class VoiceController;

/// The states of a recognition session, followed by what the controller writes into its log and asks of the
/// audio engine, and compared with what it holds. Every step from one state to the next must be one of the
/// table.
class SessionTable {
public:
    enum class State : std::uint8_t {
        Idle,
        Starting,       ///< within one call
        WithoutRequest, ///< no request could be made: nothing begins until the next start
        Listening,
        Retrying,    ///< the engine did not start, and has its second chance in a second
        EngineError, ///< nor did it the second time
        Restarting,
    };

    /// What the table needs to know the time.
    explicit SessionTable(const VirtualMainQueue& mainQueue) : mainQueue_(mainQueue) {}

    /// An event of the scripted platform.
    void observe(std::string_view event, const nlohmann::ordered_json& members);
    /// The controller's status message was assigned.
    void observeStatus(const QString& status);
    /// A new controller begins.
    void relaunch();

    /// Once nothing is due: what is held must be what the state holds.
    void check(const VoiceController& controller, const Holdings& holdings) const;

    [[nodiscard]] State state() const { return state_; }
    /// How often a state was entered.
    [[nodiscard]] int entries(State state) const;

private:
    void observeLog(const QString& line);
    void observeEngine(std::string_view action);
    void enter(State next, const std::set<State>& from);
    void observeStart(const QString& line);
    void observeRestart();
    void observeDelay(const QString& line);
    void observeMatch();

    const VirtualMainQueue& mainQueue_;
    State state_ = State::Idle;
    bool isRestarting_ = false;
    /// The engine that runs was started by a retry: its session has no timer.
    bool engineWasRetried_ = false;
    int matchesInSession_ = 0;
    int recentRestarts_ = 0;
    std::optional<MainQueue::TimePoint> lastRestart_;
    std::map<State, int> entries_;
};

} // namespace brivandel
