#include "platform/linux/applescript/LinuxScriptHost.h"

#include "platform/linux/applescript/ScriptErrors.h"
#include "platform/linux/applescript/ScriptInterpreter.h"
#include "platform/linux/applescript/ScriptParser.h"

#include <QScopeGuard>

#include <utility>
#include <variant>

namespace brivandel {

LinuxScriptHost::LinuxScriptHost(std::unique_ptr<KeySender> keys,
                                 std::shared_ptr<const StandInChoice> standIn,
                                 std::unique_ptr<script::ScriptTime> time, std::chrono::milliseconds patience)
    : keys_(std::move(keys))
    , standIn_(std::move(standIn))
    , time_(std::move(time))
    , patience_(patience) {}

LinuxScriptHost::~LinuxScriptHost() {
    stopping_ = true;
    time_->interrupt();
    turns_.close();
    std::unique_lock lock(mutex_);
    allEnded_.wait(lock, [this] { return runningCount_ == 0; });
}

std::optional<ScriptErrorDictionary> LinuxScriptHost::run(const QString& source) {
    {
        const std::scoped_lock lock(mutex_);
        ++runningCount_;
    }
    const auto ended = qScopeGuard([this] {
        const std::scoped_lock lock(mutex_);
        --runningCount_;
        allEnded_.notify_all();
    });

    const auto parsed = script::parseScript(source);
    if (const auto* const error = std::get_if<script::ScriptSyntaxError>(&parsed)) {
        return script::syntaxErrorDictionary(*error);
    }
    return script::runScript(std::get<script::Script>(parsed), {.keys = *keys_,
                                                                .time = *time_,
                                                                .turns = turns_,
                                                                .stopping = stopping_,
                                                                .standIn = *standIn_,
                                                                .patience = patience_});
}

} // namespace brivandel
