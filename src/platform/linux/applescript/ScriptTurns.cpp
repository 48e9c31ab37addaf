#include "platform/linux/applescript/ScriptTurns.h"

#include <algorithm>
#include <utility>

namespace brivandel::script {

ScriptTurns::Turn::Turn(Turn&& other) noexcept : turns_(std::exchange(other.turns_, nullptr)) {}

ScriptTurns::Turn::~Turn() {
    if (turns_ != nullptr) {
        turns_->release();
    }
}

std::optional<ScriptTurns::Turn> ScriptTurns::take(std::chrono::nanoseconds patience) {
    std::unique_lock lock(mutex_);
    const unsigned ticket = nextTicket_++;
    queue_.push_back(ticket);
    const bool answered =
        changed_.wait_for(lock, patience, [&] { return closed_ || queue_.front() == ticket; });
    if (answered && !closed_) {
        return Turn(this);
    }
    queue_.erase(std::ranges::find(queue_, ticket));
    changed_.notify_all();
    return std::nullopt;
}

void ScriptTurns::close() {
    {
        const std::scoped_lock lock(mutex_);
        closed_ = true;
    }
    changed_.notify_all();
}

void ScriptTurns::release() {
    {
        const std::scoped_lock lock(mutex_);
        queue_.pop_front();
    }
    changed_.notify_all();
}

} // namespace brivandel::script
