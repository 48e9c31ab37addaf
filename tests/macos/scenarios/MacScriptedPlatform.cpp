#include "Control.h"
#include "ReportedRecognition.h"
#include "ReportedServices.h"
#include "platform/scripted/Placement.h"
#include "platform/scripted/ScriptedPlatform.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ranges>
#include <utility>

namespace brivandel {

namespace {

// Says that a scenario asks for what no system does, so that whoever runs it leaves it out.
constexpr int cannotBeCarried = 78;

[[noreturn]] void leaveOut(const char* what) {
    std::fprintf(stderr, "the doubles cannot carry %s\n", what);
    std::fflush(nullptr);
    std::_Exit(cannotBeCarried);
}

} // namespace

void PlayedDefaults::preset(const QString& key, const QVariant& value) {
    const auto calls = standin::world().calls;
    ScriptedLog log([](std::string_view, const nlohmann::ordered_json&) {});
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
    auto& mainQueue = place<VirtualMainQueue>(platform->mainQueue);
    const auto scripts = std::make_shared<PlayedScripts>();
    const auto sessions = std::make_shared<PlayedSessions>();
    const auto captureEnd = std::make_shared<CaptureEnd>();
    place<ScriptedLog>(platform->log, sink);
    platform->keyboardLayout = makeMacKeyboardLayout();
    place<ReportedPermissions>(platform->permissions, sink);
    place<PlayedNotifier>(platform->notifier, sink);
    place<PlayedBeeper>(platform->beeper, sink);
    place<ReportedScriptHost>(platform->scriptHost, sink, mainQueue, scripts);
    place<ScriptedTargetInquiry>(platform->target);
    place<ScriptedWorkQueue>(platform->workQueue, mainQueue);
    place<ReportedDefaults>(platform->defaults, sink, *platform->log);
    platform->audioDevices = makeMacAudioDevices();
    auto& engine = place<ReportedEngine>(platform->audioEngine, sink, mainQueue, captureEnd);
    place<ReportedRecognition>(platform->speechRecognition, sink, sessions, captureEnd);
    PlayedDefaults defaults;
    for (auto entry = storedObjects.cbegin(); entry != storedObjects.cend(); ++entry) {
        defaults.preset(entry.key(), entry.value());
    }
    return {std::move(platform), mainQueue, defaults, {}, {scripts}, {}, {&engine.adapter()}, {sessions}};
}

} // namespace brivandel
