#pragma once

#include "platform/ScriptHost.h"
#include "platform/linux/applescript/ScriptTime.h"
#include "platform/linux/applescript/ScriptTurns.h"
#include "platform/linux/applescript/StandIn.h"
#include "platform/linux/keys/KeySender.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

namespace brivandel {

/// Runs the AppleScript that this program writes, and no other. A script is read whole before its first key
/// is pressed; it can bring programs to the front, wait and press keys, and do nothing else.
class LinuxScriptHost final : public ScriptHost {
public:
    /// How long a script may take beside its own delays before it gives up: what a person who waits for a
    /// take forgives.
    static constexpr std::chrono::seconds defaultPatience{10};

    /// standIn: which program stands for "Logic Pro", and in which keys.
    LinuxScriptHost(std::unique_ptr<KeySender> keys, std::shared_ptr<const StandInChoice> standIn,
                    std::unique_ptr<script::ScriptTime> time = std::make_unique<script::SystemScriptTime>(),
                    std::chrono::milliseconds patience = defaultPatience);
    /// Scripts that still run end with "User canceled." before their next statement; it waits for that.
    ~LinuxScriptHost() override;

    [[nodiscard]] std::optional<ScriptErrorDictionary> run(const QString& source) override;

private:
    std::unique_ptr<KeySender> keys_;
    std::shared_ptr<const StandInChoice> standIn_;
    std::unique_ptr<script::ScriptTime> time_;
    std::chrono::milliseconds patience_;
    script::ScriptTurns turns_;
    std::atomic<bool> stopping_ = false;

    std::mutex mutex_;
    std::condition_variable allEnded_;
    int runningCount_ = 0; ///< guarded by mutex_
};

} // namespace brivandel
