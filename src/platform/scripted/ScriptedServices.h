#pragma once

#include "platform/Beeper.h"
#include "platform/DiagnosticLog.h"
#include "platform/KeyboardLayout.h"
#include "platform/Notifier.h"
#include "platform/Permissions.h"
#include "platform/PronunciationGuide.h"
#include "platform/ScriptHost.h"
#include "platform/Targets.h"
#include "platform/WorkQueue.h"
#include "platform/scripted/EventSink.h"
#include "platform/scripted/VirtualMainQueue.h"

#include <functional>
#include <optional>

namespace brivandel {

/// Runs work at once; what it posts arrives after the time that its scripts took.
class ScriptedWorkQueue final : public WorkQueue {
public:
    explicit ScriptedWorkQueue(VirtualMainQueue& mainQueue);
    void run(std::function<void()> work) override;

private:
    VirtualMainQueue& mainQueue_;
};

/// Answers every script with one outcome, after one time.
class ScriptedScriptHost final : public ScriptHost {
public:
    ScriptedScriptHost(EventSink sink, VirtualMainQueue& mainQueue);
    [[nodiscard]] std::optional<ScriptErrorDictionary> run(const QString& source) override;

    void setOutcome(std::optional<ScriptErrorDictionary> error, VirtualMainQueue::Duration duration);

private:
    EventSink sink_;
    VirtualMainQueue& mainQueue_;
    std::optional<ScriptErrorDictionary> error_;
    VirtualMainQueue::Duration duration_{};
};

/// Its scripts go nowhere that could be named.
class ScriptedTargetInquiry final : public TargetInquiry {
public:
    [[nodiscard]] QString inWords() const override;
};

class ScriptedLog final : public DiagnosticLog {
public:
    explicit ScriptedLog(EventSink sink);
    /// A call stack is reported without its frames: they differ from build to build.
    void write(const QString& message) override;

private:
    EventSink sink_;
};

class ScriptedPermissions final : public Permissions {
public:
    explicit ScriptedPermissions(EventSink sink);
    void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) override;
    void requestMicrophoneAccess(std::function<void(bool granted)> answer) override;
    void requestNotificationAuthorization() override;

    void answerSpeech(SpeechAuthorization answer) const;
    void answerMicrophone(bool granted) const;

private:
    EventSink sink_;
    std::function<void(SpeechAuthorization)> speechAnswer_;
    std::function<void(bool)> microphoneAnswer_;
};

class ScriptedNotifier final : public Notifier {
public:
    explicit ScriptedNotifier(EventSink sink);
    void deliver(const Notification& notification) override;

private:
    EventSink sink_;
};

class ScriptedBeeper final : public Beeper {
public:
    explicit ScriptedBeeper(EventSink sink);
    void beep() override;

private:
    EventSink sink_;
};

/// Knows the phrases that it was told.
class ScriptedPronunciationGuide final : public PronunciationGuide {
public:
    [[nodiscard]] ExpectedPhrases expect(const QSet<QString>& phrases) const override;

    ExpectedPhrases known;
};

/// The letters and digits of an ANSI keyboard with a US layout, by which labels come out the same everywhere.
class ScriptedKeyboardLayout final : public KeyboardLayout {
public:
    [[nodiscard]] std::optional<QString> characterForKeyCode(std::uint16_t keyCode) const override;
    /// Its scan codes are key codes from 1 instead of from 0, so that 0 is no key.
    [[nodiscard]] std::optional<std::uint16_t> keyCodeForNativeKey(NativeKey key) const override;
};

} // namespace brivandel
