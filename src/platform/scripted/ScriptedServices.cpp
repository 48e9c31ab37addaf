#include "platform/scripted/ScriptedServices.h"

#include <QRegularExpression>
#include <QStringView>

#include <utility>

namespace brivandel {

ScriptedWorkQueue::ScriptedWorkQueue(VirtualMainQueue& mainQueue) : mainQueue_(mainQueue) {}

void ScriptedWorkQueue::run(std::function<void()> work) {
    work();
    mainQueue_.setPostingDelay({});
}

ScriptedScriptHost::ScriptedScriptHost(EventSink sink, VirtualMainQueue& mainQueue)
    : sink_(std::move(sink))
    , mainQueue_(mainQueue) {}

std::optional<ScriptErrorDictionary> ScriptedScriptHost::run(const QString& source) {
    sink_("script", {{"source", source.toStdString()}});
    mainQueue_.setPostingDelay(duration_);
    return error_;
}

void ScriptedScriptHost::setOutcome(std::optional<ScriptErrorDictionary> error,
                                    VirtualMainQueue::Duration duration) {
    error_ = std::move(error);
    duration_ = duration;
}

QString ScriptedTargetInquiry::inWords() const {
    return QStringLiteral("Commands go to a workstation.");
}

ScriptedLog::ScriptedLog(EventSink sink) : sink_(std::move(sink)) {}

void ScriptedLog::write(const QString& message) {
    const QString callStack = QStringLiteral("Call stack: ");
    sink_("log", {{"line", (message.startsWith(callStack) ? callStack + u'…' : message).toStdString()}});
}

ScriptedPermissions::ScriptedPermissions(EventSink sink) : sink_(std::move(sink)) {}

void ScriptedPermissions::requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) {
    sink_("permissionRequest", {{"kind", "speech"}});
    speechAnswer_ = std::move(answer);
}

void ScriptedPermissions::requestMicrophoneAccess(std::function<void(bool)> answer) {
    sink_("permissionRequest", {{"kind", "microphone"}});
    microphoneAnswer_ = std::move(answer);
}

void ScriptedPermissions::requestNotificationAuthorization() {
    sink_("permissionRequest", {{"kind", "notifications"}});
}

void ScriptedPermissions::answerSpeech(SpeechAuthorization answer) const {
    if (speechAnswer_) {
        speechAnswer_(answer);
    }
}

void ScriptedPermissions::answerMicrophone(bool granted) const {
    if (microphoneAnswer_) {
        microphoneAnswer_(granted);
    }
}

ScriptedNotifier::ScriptedNotifier(EventSink sink) : sink_(std::move(sink)) {}

void ScriptedNotifier::deliver(const Notification& notification) {
    nlohmann::ordered_json event = {{"title", notification.title.toStdString()},
                                    {"body", notification.body.toStdString()}};
    // An identifier holds the time, which says nothing to a reader; one of another form is a mistake and is
    // shown.
    static const QRegularExpression form(QStringLiteral("^idle-\\d+\\.\\d+$"));
    if (!notification.identifier.contains(form)) {
        event["identifier"] = notification.identifier.toStdString();
    }
    sink_("notification", std::move(event));
}

ScriptedBeeper::ScriptedBeeper(EventSink sink) : sink_(std::move(sink)) {}

void ScriptedBeeper::beep() {
    sink_("beep", nlohmann::ordered_json::object());
}

ExpectedPhrases ScriptedPronunciationGuide::expect(const QSet<QString>& phrases) const {
    ExpectedPhrases expected = known;
    expected.removeIf(
        [&phrases](ExpectedPhrases::iterator phrase) { return !phrases.contains(phrase.key()); });
    return expected;
}

std::optional<QString> ScriptedKeyboardLayout::characterForKeyCode(std::uint16_t keyCode) const {
    // By virtual key code from 0; a blank where the code is none of a character key.
    constexpr QStringView characters = u"asdfhgzxcv bqweryt123465=97-80]ou[ip lj'k;\\,/nm.";
    if (keyCode >= characters.size() || characters[keyCode] == u' ') {
        return std::nullopt;
    }
    return QString(characters[keyCode]);
}

std::optional<std::uint16_t> ScriptedKeyboardLayout::keyCodeForNativeKey(NativeKey key) const {
    constexpr std::uint32_t keyCount = 128;
    if (key.scanCode == 0 || key.scanCode > keyCount) {
        return std::nullopt;
    }
    return static_cast<std::uint16_t>(key.scanCode - 1);
}

} // namespace brivandel
