#pragma once

#include "platform/macos/CaptureEnd.h"
#include "platform/macos/MacServices.h"
#include "platform/scripted/ScriptedAudio.h"
#include "platform/scripted/ScriptedServices.h"
#include "platform/scripted/StoredValueJson.h"

#include <memory>
#include <utility>

// Services that report as scripted ones do, and do as the adapters do. Main thread.
namespace brivandel {

class PlayedBeeper final : public Beeper {
public:
    explicit PlayedBeeper(const EventSink& sink) : reported_(sink) {}
    void beep() override {
        reported_.beep();
        adapter_->beep();
    }

private:
    ScriptedBeeper reported_;
    std::unique_ptr<Beeper> adapter_ = makeMacBeeper();
};

class PlayedNotifier final : public Notifier {
public:
    explicit PlayedNotifier(const EventSink& sink) : reported_(sink) {}
    void deliver(const Notification& notification) override {
        reported_.deliver(notification);
        adapter_->deliver(notification);
    }

private:
    ScriptedNotifier reported_;
    std::unique_ptr<Notifier> adapter_ = makeMacNotifier();
};

class ReportedPermissions final : public Permissions {
public:
    explicit ReportedPermissions(const EventSink& sink) : reported_(sink) {}
    void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) override {
        reported_.requestSpeechAuthorization({});
        adapter_->requestSpeechAuthorization(std::move(answer));
    }
    void requestMicrophoneAccess(std::function<void(bool)> answer) override {
        reported_.requestMicrophoneAccess({});
        adapter_->requestMicrophoneAccess(std::move(answer));
    }
    void requestNotificationAuthorization() override {
        reported_.requestNotificationAuthorization();
        adapter_->requestNotificationAuthorization();
    }

private:
    ScriptedPermissions reported_;
    std::unique_ptr<Permissions> adapter_ = makeMacPermissions();
};

class ReportedDefaults final : public DefaultsStore {
public:
    ReportedDefaults(const EventSink& sink, DiagnosticLog& log)
        : sink_(sink)
        , adapter_(makeMacDefaultsStore(log)) {}
    [[nodiscard]] QVariant object(const QString& key) const override { return adapter_->object(key); }
    [[nodiscard]] QVariantMap objects() const override { return adapter_->objects(); }
    void set(const QString& key, const QVariant& value) override {
        adapter_->set(key, value);
        sink_("store", {{"key", key.toStdString()}, {"value", storedValueJson(adapter_->object(key))}});
    }
    void remove(const QString& key) override {
        adapter_->remove(key);
        sink_("store", {{"key", key.toStdString()}, {"value", nullptr}});
    }

private:
    EventSink sink_;
    std::unique_ptr<DefaultsStore> adapter_;
};

class ReportedEngine final : public AudioEngine {
public:
    ReportedEngine(const EventSink& sink, MainQueue& mainQueue, std::shared_ptr<CaptureEnd> captureEnd)
        : reported_(sink)
        , adapter_(makeMacAudioEngine(mainQueue, std::move(captureEnd))) {}
    [[nodiscard]] AudioFormat inputFormat() override { return adapter_->inputFormat(); }
    void installTap(std::uint32_t bufferSizeFrames, const AudioFormat& format, TapBlock block) override {
        reported_.installTap(bufferSizeFrames, format, {});
        adapter_->installTap(bufferSizeFrames, format, std::move(block));
    }
    void removeTap() override {
        reported_.removeTap();
        adapter_->removeTap();
    }
    void prepare() override {
        reported_.prepare();
        adapter_->prepare();
    }
    [[nodiscard]] std::optional<QString> start() override {
        const auto failure = adapter_->start();
        if (failure) {
            reported_.failStarts(1, *failure);
        }
        return reported_.start();
    }
    void stop() override {
        reported_.stop();
        adapter_->stop();
    }
    void followDefaultInput() override { adapter_->followDefaultInput(); }
    [[nodiscard]] AudioEngine& adapter() { return *adapter_; }
    [[nodiscard]] std::int32_t setInputDevice(AudioDeviceID device) override {
        reported_.setDeviceStatus(adapter_->setInputDevice(device));
        return reported_.setInputDevice(device);
    }

private:
    ScriptedAudioEngine reported_;
    std::unique_ptr<AudioEngine> adapter_;
};

/// How long each script takes.
class PlayedScripts final {
public:
    VirtualMainQueue::Duration duration{};
};

class ReportedScriptHost final : public ScriptHost {
public:
    ReportedScriptHost(const EventSink& sink, VirtualMainQueue& mainQueue,
                       std::shared_ptr<PlayedScripts> scripts)
        : sink_(sink)
        , mainQueue_(mainQueue)
        , scripts_(std::move(scripts)) {}
    [[nodiscard]] std::optional<ScriptErrorDictionary> run(const QString& source) override {
        sink_("script", {{"source", source.toStdString()}});
        mainQueue_.setPostingDelay(scripts_->duration);
        return adapter_->run(source);
    }

private:
    EventSink sink_;
    VirtualMainQueue& mainQueue_;
    std::shared_ptr<PlayedScripts> scripts_;
    std::unique_ptr<ScriptHost> adapter_ = makeMacScriptHost();
};

} // namespace brivandel
