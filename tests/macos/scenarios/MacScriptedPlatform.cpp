#include "Control.h"
#include "platform/macos/MacServices.h"
#include "platform/scripted/ScriptedPlatform.h"
#include "platform/scripted/ScriptedServices.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ranges>
#include <utility>

namespace brivandel {

namespace {

using Json = nlohmann::ordered_json;

// Says that a scenario asks for what no system does, so that whoever runs it leaves it out.
constexpr int cannotBeCarried = 78;

// Reports as a scripted service does, and does as the adapter does.
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

Json storedValue(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString().toStdString();
    case QMetaType::QByteArray:
        return QString::fromUtf8(value.toByteArray()).toStdString();
    default:
        return nullptr;
    }
}

class ReportedDefaults final : public DefaultsStore {
public:
    ReportedDefaults(const EventSink& sink, DiagnosticLog& log)
        : sink_(sink)
        , adapter_(makeMacDefaultsStore(log)) {}
    [[nodiscard]] QVariant object(const QString& key) const override { return adapter_->object(key); }
    [[nodiscard]] QVariantMap objects() const override { return adapter_->objects(); }
    void set(const QString& key, const QVariant& value) override {
        adapter_->set(key, value);
        sink_("store", {{"key", key.toStdString()}, {"value", storedValue(adapter_->object(key))}});
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
    explicit ReportedEngine(const EventSink& sink) : reported_(sink) {}
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
    std::unique_ptr<AudioEngine> adapter_ = makeMacAudioEngine();
};

} // namespace

class PlayedScripts final {
public:
    VirtualMainQueue::Duration duration{};
};

namespace {

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

} // namespace

/// The sessions of a run, numbered from 1, as the double of the framework knows them.
class PlayedSessions final {
public:
    struct Session {
        const void* native = nullptr;
        bool isLive = true;
    };
    std::vector<std::shared_ptr<Session>> all;
};

namespace {

class ReportedRequest final : public SpeechRecognitionRequest {
public:
    ReportedRequest(const EventSink& sink, std::shared_ptr<SpeechRecognitionRequest> adapter)
        : sink_(sink)
        , adapter_(std::move(adapter)) {}
    void setShouldReportPartialResults(bool report) override {
        sink_("request", {{"action", "begin"}, {"partialResults", report}});
        adapter_->setShouldReportPartialResults(report);
    }
    void append(const AudioBuffer& buffer) override {
        sink_("append", {{"channels", buffer.channels.size()}, {"frames", buffer.frameLength}});
        adapter_->append(buffer);
    }
    void endAudio() override {
        sink_("request", {{"action", "endAudio"}});
        adapter_->endAudio();
    }
    [[nodiscard]] const std::shared_ptr<SpeechRecognitionRequest>& adapter() const { return adapter_; }

private:
    EventSink sink_;
    std::shared_ptr<SpeechRecognitionRequest> adapter_;
};

class ReportedTask final : public SpeechRecognitionTask {
public:
    ReportedTask(const EventSink& sink, std::unique_ptr<SpeechRecognitionTask> adapter,
                 std::shared_ptr<PlayedSessions::Session> session)
        : sink_(sink)
        , adapter_(std::move(adapter))
        , session_(std::move(session)) {
        sink_("task", {{"action", "begin"}});
    }
    void finish() override {
        sink_("task", {{"action", "finish"}});
        adapter_->finish();
    }
    void cancel() override {
        session_->isLive = false;
        sink_("task", {{"action", "cancel"}});
        adapter_->cancel();
    }

private:
    EventSink sink_;
    std::unique_ptr<SpeechRecognitionTask> adapter_;
    std::shared_ptr<PlayedSessions::Session> session_;
};

class ReportedRecognizer final : public SpeechRecognizer {
public:
    ReportedRecognizer(const EventSink& sink, std::unique_ptr<SpeechRecognizer> adapter,
                       std::shared_ptr<PlayedSessions> sessions)
        : sink_(sink)
        , adapter_(std::move(adapter))
        , sessions_(std::move(sessions)) {}
    void setVocabulary(const RecognitionVocabulary& vocabulary) override {
        adapter_->setVocabulary(vocabulary);
    }
    std::unique_ptr<SpeechRecognitionTask> startTask(std::shared_ptr<SpeechRecognitionRequest> request,
                                                     ResultHandler handler) override {
        auto task = adapter_->startTask(std::static_pointer_cast<ReportedRequest>(request)->adapter(),
                                        std::move(handler));
        auto session = std::make_shared<PlayedSessions::Session>();
        session->native = standin::newestSession();
        sessions_->all.push_back(session);
        return std::make_unique<ReportedTask>(sink_, std::move(task), std::move(session));
    }

private:
    EventSink sink_;
    std::unique_ptr<SpeechRecognizer> adapter_;
    std::shared_ptr<PlayedSessions> sessions_;
};

class ReportedRecognition final : public SpeechRecognition {
public:
    ReportedRecognition(const EventSink& sink, std::shared_ptr<PlayedSessions> sessions)
        : sink_(sink)
        , sessions_(std::move(sessions)) {}
    [[nodiscard]] std::unique_ptr<SpeechRecognizer> makeRecognizer(const QString& locale) override {
        auto recognizer = adapter_->makeRecognizer(locale);
        return recognizer ? std::make_unique<ReportedRecognizer>(sink_, std::move(recognizer), sessions_)
                          : nullptr;
    }
    [[nodiscard]] std::shared_ptr<SpeechRecognitionRequest> makeRequest() override {
        return std::make_shared<ReportedRequest>(sink_, adapter_->makeRequest());
    }

private:
    EventSink sink_;
    std::shared_ptr<PlayedSessions> sessions_;
    std::unique_ptr<SpeechRecognition> adapter_ = makeMacSpeechRecognition();
};

[[noreturn]] void leaveOut(const char* what) {
    std::fprintf(stderr, "the doubles cannot carry %s\n", what);
    std::fflush(nullptr);
    std::_Exit(cannotBeCarried);
}

} // namespace

void PlayedDefaults::preset(const QString& key, const QVariant& value) {
    const auto calls = standin::world().calls;
    ScriptedLog log([](std::string_view, const Json&) {});
    if (value.isValid()) {
        makeMacDefaultsStore(log)->set(key, value);
    } else {
        makeMacDefaultsStore(log)->remove(key);
    }
    standin::world().calls = calls;
}

void PlayedPermissions::answerSpeech(SpeechAuthorization answer) {
    standin::answerSpeech(static_cast<int>(answer));
}

void PlayedPermissions::answerMicrophone(bool granted) {
    standin::answerMicrophone(granted);
}

void PlayedDevices::setDevices(const std::vector<ScriptedAudioDevices::Entry>& devices) {
    standin::world().devices.clear();
    for (const auto& [device, id] : devices) {
        standin::world().devices.push_back({device.uid, device.name, id});
    }
}

void PlayedEngine::setInputFormat(const AudioFormat& format) {
    standin::world().input = {format.sampleRateHz, format.channelCount, false, format.formatID,
                              format.bitsPerChannel};
}

void PlayedEngine::failStarts(int count, const QString& description) {
    standin::world().failingStarts = count;
    standin::world().startError = description;
}

void PlayedEngine::setDeviceStatus(std::int32_t status) {
    standin::world().deviceStatus = status;
}

void PlayedEngine::feed(const std::vector<ScriptedChannel>& channels) {
    if (!std::ranges::all_of(channels, &ScriptedChannel::has_value)) {
        leaveOut("a buffer that lacks a single channel");
    }
    std::vector<std::vector<float>> sound;
    for (const ScriptedChannel& channel : channels) {
        sound.push_back(*channel);
    }
    standin::feed(sound);
}

void PlayedScriptHost::setOutcome(const std::optional<ScriptErrorDictionary>& error,
                                  VirtualMainQueue::Duration duration) {
    scripts->duration = duration;
    standin::world().scriptError.reset();
    if (error) {
        standin::world().scriptError.emplace();
        for (auto entry = error->cbegin(); entry != error->cend(); ++entry) {
            standin::world().scriptError->emplace_back(entry.key(), entry.value());
        }
    }
}

void PlayedRecognition::setRecognizerAvailable(bool available) {
    standin::world().locales = available ? QStringList(QStringLiteral("en-US")) : QStringList();
}

void PlayedRecognition::setRequestAvailable(bool /*available*/) {
    leaveOut("a request that cannot be made");
}

void PlayedRecognition::deliver(const std::optional<RecognitionResult>& result,
                                const std::optional<QString>& error, std::optional<std::size_t> taskNumber) {
    std::shared_ptr<PlayedSessions::Session> session;
    if (taskNumber) {
        if (*taskNumber >= 1 && *taskNumber <= sessions->all.size()) {
            session = sessions->all[*taskNumber - 1];
        }
    } else {
        const auto newestFirst = sessions->all | std::views::reverse;
        const auto found = std::ranges::find_if(newestFirst, [](const auto& each) { return each->isLive; });
        session = found == newestFirst.end() ? nullptr : *found;
    }
    if (session) {
        session->isLive = session->isLive && !error;
        standin::deliverTo(session->native, result ? std::optional(result->formattedString) : std::nullopt,
                           result && result->isFinal, error);
    }
}

void ScriptedPlatform::endProgram() {
    audioEngine.adapter->removeTap();
    audioEngine.adapter->stop();
    speechRecognition.sessions->all.clear();
    mainQueue.clear();
}

ScriptedPlatform makeScriptedPlatform(const EventSink& sink, const QVariantMap& storedObjects) {
    auto platform = std::make_unique<Platform>();
    auto queue = std::make_unique<VirtualMainQueue>();
    VirtualMainQueue& mainQueue = *queue;
    const auto scripts = std::make_shared<PlayedScripts>();
    const auto sessions = std::make_shared<PlayedSessions>();
    platform->mainQueue = std::move(queue);
    platform->log = std::make_unique<ScriptedLog>(sink);
    platform->keyboardLayout = makeMacKeyboardLayout();
    platform->permissions = std::make_unique<ReportedPermissions>(sink);
    platform->notifier = std::make_unique<PlayedNotifier>(sink);
    platform->beeper = std::make_unique<PlayedBeeper>(sink);
    platform->scriptHost = std::make_unique<ReportedScriptHost>(sink, mainQueue, scripts);
    platform->workQueue = std::make_unique<ScriptedWorkQueue>(mainQueue);
    platform->defaults = std::make_unique<ReportedDefaults>(sink, *platform->log);
    platform->audioDevices = makeMacAudioDevices();
    auto engine = std::make_unique<ReportedEngine>(sink);
    AudioEngine& engineAdapter = engine->adapter();
    platform->audioEngine = std::move(engine);
    platform->speechRecognition = std::make_unique<ReportedRecognition>(sink, sessions);
    PlayedDefaults defaults;
    for (auto entry = storedObjects.cbegin(); entry != storedObjects.cend(); ++entry) {
        defaults.preset(entry.key(), entry.value());
    }
    return {std::move(platform), mainQueue, defaults, {}, {scripts}, {}, {&engineAdapter}, {sessions}};
}

// What decides and listens is linked with the factory of a platform, which nobody calls here.
std::unique_ptr<Platform> makePlatform(const PlatformOptions& /*options*/) {
    std::abort();
}

} // namespace brivandel
