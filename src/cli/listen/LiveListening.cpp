#include "cli/listen/LiveListening.h"

#include "cli/listen/Interruption.h"
#include "cli/listen/ListenReport.h"
#include "cli/listen/ObservedServices.h"
#include "cli/listen/SilentServices.h"
#include "cli/listen/StatusLine.h"
#include "cli/listen/TerminalText.h"
#include "listening/LastFailure.h"
#include "listening/VoiceController.h"
#include "platform/Lifeline.h"
#include "platform/PlatformFactory.h"
#include "platform/scripted/MemoryDefaultsStore.h"

#include <QCoreApplication>

#include <unistd.h>

#include <optional>
#include <ostream>
#include <utility>

namespace brivandel {

namespace {

// The system's platform with its recogniser and its script host observed: what they do is reported on the
// main thread.
class ObservedPlatform {
public:
    ObservedPlatform(const LiveListeningOptions& options, ListenReport& report)
        : system_(makePlatform({options.target}))
        , recognition_(std::move(system_->speechRecognition))
        , scriptHost_(std::move(system_->scriptHost)) {
        system_->scriptHost = std::make_unique<ObservedScriptHost>(
            options.dryRun ? nullptr : scriptHost_.get(), [this, &report](const auto& error) {
                post([this, &report, error] { report.script(seconds(), error); });
            });
        system_->speechRecognition = std::make_unique<ObservedRecognition>(
            *recognition_, ObservedRecognition::Show{
                               [this, &report](const RecognitionResult& result) {
                                   post([this, &report, result] { report.heard(seconds(), result); });
                               },
                               [this, &report](const UtteranceVerdict& verdict) {
                                   post([this, &report, verdict] { report.judged(seconds(), verdict); });
                               }});
        if (options.dryRun) {
            // Nothing has happened, so nothing says so: no beep, no log line, no setting changed by voice.
            system_->defaults = std::make_unique<MemoryDefaultsStore>(system_->defaults->objects());
            system_->beeper = std::make_unique<SilentServices>();
            silentLog_ = std::make_unique<SilentServices>();
            std::swap(system_->log, silentLog_);
        }
    }

    ~ObservedPlatform() {
        // Scripts and recognition end before what they report to is gone.
        system_->workQueue.reset();
        recognition_.reset();
    }
    ObservedPlatform(const ObservedPlatform&) = delete;
    ObservedPlatform& operator=(const ObservedPlatform&) = delete;

    Platform& platform() { return *system_; }
    [[nodiscard]] double seconds() const {
        return std::chrono::duration<double>(system_->mainQueue->now() - start_).count();
    }
    [[nodiscard]] MainQueue::TimePoint start() const { return start_; }

private:
    void post(MainQueue::Task task) { system_->mainQueue->post(lifeline_.guard(std::move(task))); }

    std::unique_ptr<DiagnosticLog> silentLog_; // or the system's own, which its services go on using
    std::unique_ptr<Platform> system_;
    std::unique_ptr<SpeechRecognition> recognition_;
    std::unique_ptr<ScriptHost> scriptHost_;
    MainQueue::TimePoint start_ = system_->mainQueue->now();
    Lifeline lifeline_;
};

} // namespace

int listenLive(const LiveListeningOptions& options, const Terminal& terminal) {
    if (const auto problem = speechRecognitionProblem()) {
        terminal.err << "brivandel listen: " << problem->toStdString() << '\n';
        return ExitStatus::failure;
    }
    std::optional<StatusLine> statusLine;
    ListenReport report({}, options.json, terminal, [&statusLine] {
        if (statusLine) {
            statusLine->erase();
        }
    });
    ObservedPlatform observed(options, report);
    VoiceController controller(observed.platform());
    std::optional<LastFailure> lastFailure;
    if (!options.dryRun) {
        lastFailure.emplace(controller, lastFailurePath());
    }
    const bool isOnTerminal = !options.json && isatty(STDOUT_FILENO) != 0;
    if (isOnTerminal) {
        statusLine.emplace(controller, terminal.out, terminalColumns);
    } else if (!options.json) {
        QObject::connect(&controller, &VoiceController::statusMessageChanged, &controller,
                         [&] { terminal.out << controller.statusMessage().toStdString() << std::endl; });
    }
    QObject::connect(&controller, &VoiceController::willAct, &controller, [&](const Decision& decision) {
        report.command(observed.seconds(), controller.lastTranscript(), controller.useWakeWord(), decision);
    });
    const Interruption interruption([&] {
        controller.setIsListening(false);
        QCoreApplication::quit();
    });

    report.began(observed.start());
    controller.setIsListening(true);
    QCoreApplication::exec();
    statusLine.reset();
    return report.hasFailed() ? ExitStatus::failure : ExitStatus::success;
}

} // namespace brivandel
