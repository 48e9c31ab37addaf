#include "platform/linux/applescript/ScriptTime.h"

namespace brivandel::script {

void SystemScriptTime::waitUntil(TimePoint time) {
    std::unique_lock lock(mutex_);
    interruption_.wait_until(lock, time, [this] { return interrupted_; });
}

void SystemScriptTime::interrupt() {
    {
        const std::scoped_lock lock(mutex_);
        interrupted_ = true;
    }
    interruption_.notify_all();
}

} // namespace brivandel::script
