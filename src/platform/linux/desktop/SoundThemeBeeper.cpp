#include "platform/linux/desktop/SoundThemeBeeper.h"

#include "platform/linux/desktop/AlertTone.h"

#include <canberra.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace brivandel {

namespace {

struct FreeContext {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};
using SoundContext = std::unique_ptr<ca_context, FreeContext>;

SoundContext makeSoundContext() {
    ca_context* context = nullptr;
    ca_context_create(&context);
    if (context != nullptr) {
        ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Brivandel", CA_PROP_APPLICATION_ID,
                                "brivandel", nullptr);
    }
    return SoundContext(context);
}

/// "bell" is the alert sound's name among the freedesktop sound names. It is kept by the server,
/// so that only the first one has to be sent there.
bool playThemeBell(ca_context* context) {
    return context != nullptr &&
           ca_context_play(context, 1, CA_PROP_EVENT_ID, "bell", CA_PROP_EVENT_DESCRIPTION, "Alert",
                           CA_PROP_CANBERRA_CACHE_CONTROL, "permanent", nullptr) == CA_SUCCESS;
}

} // namespace

struct SoundThemeBeeper::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    bool isWanted = false;
    bool isEnding = false;
    bool hasEnded = false;
    /// Null once the beeper is gone.
    DiagnosticLog* log = nullptr;
};

SoundThemeBeeper::SoundThemeBeeper(DiagnosticLog& log) : shared_(std::make_shared<Shared>()) {
    shared_->log = &log;
    // Detached, since it may hang in a sound server for ever; it holds what it uses.
    std::thread([shared = shared_] { serve(shared); }).detach();
}

SoundThemeBeeper::~SoundThemeBeeper() {
    std::unique_lock lock(shared_->mutex);
    shared_->isEnding = true;
    shared_->log = nullptr;
    shared_->changed.notify_all();
    shared_->changed.wait_for(lock, std::chrono::seconds(1), [this] { return shared_->hasEnded; });
}

void SoundThemeBeeper::beep() {
    const std::lock_guard lock(shared_->mutex);
    shared_->isWanted = true;
    shared_->changed.notify_all();
}

void SoundThemeBeeper::serve(const std::shared_ptr<Shared>& shared) {
    SoundContext context;
    std::unique_lock lock(shared->mutex);
    while (true) {
        shared->changed.wait(lock, [&] { return shared->isWanted || shared->isEnding; });
        if (shared->isEnding) {
            break;
        }
        shared->isWanted = false;
        lock.unlock();
        if (context == nullptr) {
            context = makeSoundContext();
        }
        std::optional<QString> problem;
        if (!playThemeBell(context.get())) {
            // A context that has lost its server does not find the next one.
            context.reset();
            problem = playAlertTone();
        }
        lock.lock();
        if (problem && shared->log != nullptr) {
            std::exchange(shared->log, nullptr)
                ->write(QStringLiteral("Feedback beep cannot be heard: ") + *problem);
        }
    }
    lock.unlock();
    context.reset();
    lock.lock();
    shared->hasEnded = true;
    shared->changed.notify_all();
}

} // namespace brivandel
