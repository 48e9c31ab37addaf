#include "listening/SessionTable.h"

#include "listening/VoiceController.h"

#include <gtest/gtest.h>

#include <array>

namespace brivandel {

using namespace std::chrono_literals;

namespace {

using State = SessionTable::State;

const std::set<State> anyState = {State::Idle,      State::Starting, State::WithoutRequest,
                                  State::Listening, State::Retrying, State::EngineError,
                                  State::Restarting};

const char* name(State state) {
    constexpr std::array names = {"Idle",     "Starting",    "WithoutRequest", "Listening",
                                  "Retrying", "EngineError", "Restarting"};
    return names.at(static_cast<std::size_t>(state));
}

} // namespace

int SessionTable::entries(State state) const {
    const auto found = entries_.find(state);
    return found == entries_.end() ? 0 : found->second;
}

void SessionTable::enter(State next, const std::set<State>& from) {
    EXPECT_TRUE(from.contains(state_)) << name(state_) << " leads to " << name(next);
    state_ = next;
    ++entries_[next];
}

void SessionTable::relaunch() {
    state_ = State::Idle;
    isRestarting_ = false;
    recentRestarts_ = 0;
    lastRestart_.reset();
}

void SessionTable::observe(std::string_view event, const nlohmann::ordered_json& members) {
    if (event == "log") {
        observeLog(QString::fromStdString(members.at("line").get<std::string>()));
    } else if (event == "engine") {
        observeEngine(members.at("action").get<std::string>());
    } else if (event == "script") {
        EXPECT_NE(state_, State::Idle) << "a command is carried out while nobody listens";
    }
}

void SessionTable::observeLog(const QString& line) {
    if (line.startsWith(QStringLiteral("isListening changed:")) && line.endsWith(QStringLiteral("false"))) {
        enter(State::Idle, anyState);
        isRestarting_ = false;
    } else if (line.startsWith(QStringLiteral("startListening() called"))) {
        observeStart(line);
    } else if (line == QStringLiteral("restartRecognition() — tearing down")) {
        observeRestart();
    } else if (line == QStringLiteral("restartRecognition() skipped — already restarting")) {
        EXPECT_TRUE(isRestarting_);
    } else if (line.startsWith(QStringLiteral("Restart delay: "))) {
        observeDelay(line);
    } else if (line.startsWith(QStringLiteral("Matched "))) {
        observeMatch();
    }
}

void SessionTable::observeStart(const QString& line) {
    // The delayed start ends the restart; one asked for in the meantime does not.
    const bool stillRestarting = line.endsWith(QStringLiteral("isRestarting=true"));
    EXPECT_TRUE(isRestarting_ || !stillRestarting) << "stopping did not end the restart";
    isRestarting_ = stillRestarting;
    matchesInSession_ = 0;
    enter(State::Starting, anyState);
}

void SessionTable::observeRestart() {
    EXPECT_FALSE(isRestarting_);
    isRestarting_ = true;
    enter(State::Restarting, {State::WithoutRequest, State::Listening, State::Retrying, State::EngineError});
}

void SessionTable::observeDelay(const QString& line) {
    const auto now = mainQueue_.now();
    recentRestarts_ = lastRestart_ && now - *lastRestart_ < 5s ? recentRestarts_ + 1 : 0;
    lastRestart_ = now;
    const QString delay = recentRestarts_ == 0   ? QStringLiteral("0.3")
                          : recentRestarts_ == 1 ? QStringLiteral("0.6")
                                                 : QStringLiteral("1.0");
    EXPECT_EQ(line,
              QStringLiteral("Restart delay: %1s (recent restarts: %2)").arg(delay).arg(recentRestarts_));
}

void SessionTable::observeMatch() {
    recentRestarts_ = 0;
    ++matchesInSession_;
    EXPECT_EQ(matchesInSession_, 1) << "a session acts twice";
}

void SessionTable::observeEngine(std::string_view action) {
    // A retry may find that its session is over, or that another has begun: then it changes nothing here.
    const bool isRetry = state_ != State::Starting;
    const bool isLate = isRetry && state_ != State::Retrying && state_ != State::EngineError;
    if (action == "start" && !isLate) {
        engineWasRetried_ = isRetry;
        enter(State::Listening, {State::Starting, State::Retrying, State::EngineError});
    } else if (action == "startFailed" && !isLate) {
        enter(isRetry ? State::EngineError : State::Retrying,
              {State::Starting, State::Retrying, State::EngineError});
    }
}

void SessionTable::observeStatus(const QString& status) {
    if (status == QStringLiteral("Unable to create recognition request")) {
        enter(State::WithoutRequest, {State::Starting});
    }
}

void SessionTable::check(const VoiceController& controller, const Holdings& holdings) const {
    SCOPED_TRACE(testing::Message() << name(state_) << " with " << testing::PrintToString(holdings));
    EXPECT_EQ(controller.isListening(), state_ != State::Idle);
    EXPECT_LE(holdings.sessionTimers, 1);
    EXPECT_LE(holdings.otherTimers, 1);
    EXPECT_GE(controller.audioLevel(), 0);
    EXPECT_LE(controller.audioLevel(), 1);

    const auto holds = [&holdings](int session, bool engineRuns) {
        EXPECT_EQ(holdings.requests, session);
        EXPECT_EQ(holdings.tasks, session);
        EXPECT_EQ(holdings.taps, session);
        EXPECT_EQ(holdings.engineRuns, engineRuns);
    };
    switch (state_) {
    case State::Idle:
        holds(0, false);
        EXPECT_EQ(holdings.sessionTimers, 0);
        EXPECT_EQ(holdings.otherTimers, 0);
        EXPECT_FALSE(controller.isAwake());
        EXPECT_EQ(controller.audioLevel(), 0);
        break;
    case State::Starting:
        ADD_FAILURE() << "starting takes longer than a call";
        break;
    case State::WithoutRequest:
        // What an earlier session had stays until it is replaced.
        EXPECT_EQ(holdings.requests, 0);
        EXPECT_LE(holdings.tasks, 1);
        EXPECT_LE(holdings.taps, 1);
        break;
    case State::Listening:
        holds(1, true);
        if (!engineWasRetried_ && !controller.isAwake()) {
            EXPECT_EQ(holdings.sessionTimers, 1) << "nothing would renew this session";
        }
        break;
    case State::Retrying:
    case State::EngineError:
        holds(1, false);
        EXPECT_EQ(holdings.sessionTimers, 0);
        break;
    case State::Restarting:
        holds(0, holdings.engineRuns);
        EXPECT_EQ(holdings.sessionTimers, 0);
        EXPECT_GE(holdings.delayedPosts, 1) << "nothing would begin the next session";
        break;
    }
}

} // namespace brivandel
