#include "platform/linux/audio/PulseAudioContext.h"

#include <pulse/error.h>
#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/subscribe.h>

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

struct FreeProperties {
    void operator()(pa_proplist* properties) const { pa_proplist_free(properties); }
};

/// Lets a request go on by itself: its callback tells when it is done. Null is one that could not be made.
void leaveRunning(pa_operation* operation) {
    if (operation != nullptr) {
        pa_operation_unref(operation);
    }
}

} // namespace

PulseAudioContext::Subscription::Subscription(PulseAudioContext& context,
                                              std::list<Observer>::iterator observer)
    : context_(context)
    , observer_(observer) {}

PulseAudioContext::Subscription::~Subscription() {
    const PulseAudioLoop::Lock lock(context_.loop_);
    context_.observers_.erase(observer_);
}

void PulseAudioContext::Release::operator()(pa_context* context) const {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_set_subscribe_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
}

PulseAudioContext::PulseAudioContext() : retry_(loop_, [this] { connect(); }) {
    const PulseAudioLoop::Lock lock(loop_);
    connect();
}

PulseAudioContext::~PulseAudioContext() {
    const PulseAudioLoop::Lock lock(loop_);
    retry_.cancel();
    context_.reset();
}

AudioServer PulseAudioContext::server() {
    const PulseAudioLoop::Lock lock(loop_);
    return awaitServer(lock);
}

std::unique_ptr<PulseAudioContext::Subscription> PulseAudioContext::observe(Observer changed) {
    const PulseAudioLoop::Lock lock(loop_);
    return std::make_unique<Subscription>(*this, observers_.insert(observers_.end(), std::move(changed)));
}

const AudioServer& PulseAudioContext::awaitServer(const PulseAudioLoop::Lock& lock) {
    if (!server_.isConnected) {
        if (retry_.isRunning()) {
            connect();
        }
        // A running timer says that this attempt has failed.
        loop_.waitUntil(lock, std::exchange(isFirstWait_, false) ? firstPatience : laterPatience,
                        [this] { return server_.isConnected || retry_.isRunning(); });
    }
    return server_;
}

std::optional<QString> PulseAudioContext::uidForDeviceID(AudioDeviceID deviceID) const {
    const auto found =
        std::ranges::find(deviceIDs_, deviceID, [](const auto& entry) { return entry.second; });
    return found == deviceIDs_.end() ? std::nullopt : std::optional(found->first);
}

void PulseAudioContext::connect() {
    retry_.cancel();
    isRefreshing_ = false;
    const std::unique_ptr<pa_proplist, FreeProperties> properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ID, "brivandel");
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, "brivandel");
    context_.reset(pa_context_new_with_proplist(&loop_.api(), "Brivandel", properties.get()));
    pa_context_set_state_callback(
        context_.get(),
        [](pa_context*, void* self) { static_cast<PulseAudioContext*>(self)->contextStateChanged(); }, this);
    if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0) {
        connectionLost(pa_context_errno(context_.get()));
    }
}

void PulseAudioContext::contextStateChanged() {
    switch (pa_context_get_state(context_.get())) {
    case PA_CONTEXT_READY:
        pa_context_set_subscribe_callback(
            context_.get(),
            [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
                static_cast<PulseAudioContext*>(self)->refresh();
            },
            this);
        leaveRunning(pa_context_subscribe(
            context_.get(),
            static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SERVER),
            nullptr, nullptr));
        refresh();
        break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        connectionLost(pa_context_errno(context_.get()));
        break;
    default:
        break;
    }
}

void PulseAudioContext::connectionLost(int error) {
    // The lost context is replaced by the next attempt: it must not be freed inside its own callback.
    retry_.start(retryInterval);
    AudioServer none;
    none.problem = QString::fromUtf8(pa_strerror(error));
    publish(std::move(none));
}

void PulseAudioContext::refresh() {
    if (isRefreshing_) {
        changedMeanwhile_ = true;
        return;
    }
    isRefreshing_ = true;
    changedMeanwhile_ = false;
    incoming_ = AudioServer();
    incoming_.isConnected = true;
    leaveRunning(pa_context_get_server_info(
        context_.get(),
        [](pa_context*, const pa_server_info* info, void* self) {
            if (info != nullptr) {
                AudioServer& incoming = static_cast<PulseAudioContext*>(self)->incoming_;
                incoming.name = QStringLiteral("%1 %2").arg(QString::fromUtf8(info->server_name),
                                                            QString::fromUtf8(info->server_version));
                incoming.defaultSourceUid = QString::fromUtf8(info->default_source_name);
            }
        },
        this));
    // The server answers in the order of asking, so the end of this list is the end of both.
    leaveRunning(pa_context_get_source_info_list(
        context_.get(),
        [](pa_context*, const pa_source_info* info, int endOfList, void* self) {
            auto& context = *static_cast<PulseAudioContext*>(self);
            if (endOfList == 0) {
                context.addIncoming(*info);
            } else if (endOfList > 0) {
                context.incomingComplete();
            }
        },
        this));
}

void PulseAudioContext::addIncoming(const pa_source_info& info) {
    const QString uid = QString::fromUtf8(info.name);
    incoming_.sources.push_back({.uid = uid,
                                 .description = QString::fromUtf8(info.description),
                                 .deviceID = deviceIDForUID(uid),
                                 .sampleRateHz = static_cast<double>(info.sample_spec.rate),
                                 .channelMap = info.channel_map,
                                 .isMonitor = info.monitor_of_sink != PA_INVALID_INDEX});
}

void PulseAudioContext::incomingComplete() {
    isRefreshing_ = false;
    publish(std::move(incoming_));
    if (changedMeanwhile_) {
        refresh();
    }
}

void PulseAudioContext::publish(AudioServer server) {
    const bool isNews = server != server_;
    server_ = std::move(server);
    loop_.wake();
    if (isNews) {
        for (const Observer& changed : observers_) {
            changed();
        }
    }
}

AudioDeviceID PulseAudioContext::deviceIDForUID(const QString& uid) {
    return deviceIDs_.try_emplace(uid, static_cast<AudioDeviceID>(deviceIDs_.size() + 1)).first->second;
}

} // namespace brivandel
