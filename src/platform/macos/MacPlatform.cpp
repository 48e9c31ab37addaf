#include "platform/PlatformFactory.h"
#include "platform/macos/CaptureEnd.h"
#include "platform/macos/FileSpeechRecognition.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacServices.h"
#include "platform/macos/MacTrust.h"
#include "platform/qt/LogFile.h"
#include "platform/qt/QtMainQueue.h"
#include "platform/qt/ThreadWorkQueue.h"

namespace brivandel {

namespace {

// The system's recogniser has a vocabulary without an end, and tells nobody what it takes words to sound
// like.
class UntoldPronunciations final : public PronunciationGuide {
public:
    [[nodiscard]] ExpectedPhrases expect(const QSet<QString>& /*phrases*/) const override { return {}; }
};

} // namespace

std::unique_ptr<Platform> makePlatform(const PlatformOptions& options) {
    auto platform = std::make_unique<Platform>();
    platform->mainQueue = std::make_unique<QtMainQueue>();
    platform->log = std::make_unique<LogFile>(LogFile::logDirectory(),
                                              [&queue = *platform->mainQueue] { return queue.wallTime(); });
    platform->keyboardLayout = makeMacKeyboardLayout();
    platform->permissions = makeMacPermissions();
    platform->notifier = makeMacNotifier();
    platform->beeper = makeMacBeeper();
    platform->scriptHost = makeScriptHost(options);
    platform->target = makeMacTargetInquiry();
    platform->workQueue = std::make_unique<ThreadWorkQueue>();
    platform->defaults = makeMacDefaultsStore(*platform->log);
    platform->audioDevices = makeMacAudioDevices();
    const auto captureEnd = std::make_shared<CaptureEnd>();
    platform->audioEngine = makeMacAudioEngine(*platform->mainQueue, captureEnd);
    platform->speechRecognition = makeMacSpeechRecognition(captureEnd);
    platform->pronunciations = std::make_shared<UntoldPronunciations>();
    return platform;
}

QString lastFailurePath() {
    return userLibraryFolder() + QStringLiteral("/Application Support/Brivandel/last-failure.json");
}

// The scripts name the workstation themselves, and its name is the same on every Mac.
std::unique_ptr<ScriptHost> makeScriptHost(const PlatformOptions& /*options*/) {
    return makeMacScriptHost();
}

std::unique_ptr<SpeechRecognition> makeFileSpeechRecognition() {
    return std::make_unique<FileSpeechRecognition>(
        makeMacSpeechRecognition(std::make_shared<CaptureEnd>())); // a file does not end by itself
}

std::optional<QString> speechRecognitionProblem() {
    switch (speechConsent()) {
    case Consent::Refused:
    case Consent::Restricted:
        return QStringLiteral("speech recognition is not allowed; see 'brivandel doctor'");
    case Consent::Given:
    case Consent::NotAskedYet:
    case Consent::Unknown:
        break;
    }
    const QString problem = recognizerProblem();
    return problem.isEmpty() ? std::nullopt : std::optional(problem);
}

} // namespace brivandel
