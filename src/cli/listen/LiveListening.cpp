#include "cli/listen/LiveListening.h"

#include "cli/listen/Interruption.h"
#include "cli/listen/ListenReport.h"
#include "cli/listen/ObservedServices.h"
#include "listening/VoiceController.h"
#include "platform/PlatformFactory.h"

#include <QCoreApplication>
#include <QTimer>

#include <unistd.h>

#include <cmath>
#include <ostream>
#include <utility>

namespace brivandel {

using namespace std::chrono_literals;

namespace {

// The line at the bottom of a terminal: state, level, status. Drawn again after a change, at most fifteen
// times a second.
class StatusLine final : public QObject {
public:
    StatusLine(const VoiceController& controller, std::ostream& out) : controller_(controller), out_(out) {
        constexpr auto interval = 66ms;
        redraw_.setSingleShot(true);
        redraw_.setInterval(interval);
        connect(&controller, &VoiceController::objectWillChange, this, [this] {
            if (!redraw_.isActive()) {
                redraw_.start();
            }
        });
        connect(&redraw_, &QTimer::timeout, this, [this] { draw(); });
    }

    void erase() { out_ << "\r\x1b[K" << std::flush; }

private:
    void draw() {
        constexpr int meterWidth = 20;
        const int filled = static_cast<int>(std::lround(controller_.audioLevel() * float{meterWidth}));
        QString meter(filled, u'▮');
        meter += QString(meterWidth - filled, u'▯');
        out_ << "\r\x1b[K" << (controller_.isAwake() ? "◉ " : "○ ") << meter.toStdString() << "  "
             << controller_.statusMessage().toStdString() << std::flush;
    }

    const VoiceController& controller_;
    std::ostream& out_;
    QTimer redraw_;
};

// The system's platform with its recogniser and its script host observed. Their observers post to the main
// thread.
class ObservedPlatform {
public:
    explicit ObservedPlatform(const LiveListeningOptions& options)
        : system_(makePlatform({options.target}))
        , recognition_(std::move(system_->speechRecognition))
        , scriptHost_(std::move(system_->scriptHost)) {
        system_->scriptHost = std::make_unique<ObservedScriptHost>(
            options.dryRun ? nullptr : scriptHost_.get(), [this](const auto& error) {
                system_->mainQueue->post([this, error] { report_->script(seconds(), error); });
            });
        system_->speechRecognition =
            std::make_unique<ObservedRecognition>(*recognition_, [this](const RecognitionResult& result) {
                system_->mainQueue->post([this, result] { report_->heard(seconds(), result); });
            });
    }

    ~ObservedPlatform() {
        // Work and recognition end before what they report to is gone.
        system_->workQueue.reset();
        recognition_.reset();
    }
    ObservedPlatform(const ObservedPlatform&) = delete;
    ObservedPlatform& operator=(const ObservedPlatform&) = delete;

    Platform& platform() { return *system_; }
    void setReport(ListenReport& report) { report_ = &report; }
    [[nodiscard]] double seconds() const {
        return std::chrono::duration<double>(system_->mainQueue->now() - start_).count();
    }
    [[nodiscard]] MainQueue::TimePoint start() const { return start_; }

private:
    std::unique_ptr<Platform> system_;
    std::unique_ptr<SpeechRecognition> recognition_;
    std::unique_ptr<ScriptHost> scriptHost_;
    ListenReport* report_ = nullptr;
    MainQueue::TimePoint start_ = system_->mainQueue->now();
};

} // namespace

int listenLive(const LiveListeningOptions& options, const Terminal& terminal) {
    if (const auto problem = speechRecognitionProblem()) {
        terminal.err << "brivandel listen: " << problem->toStdString() << '\n';
        return ExitStatus::failure;
    }
    ObservedPlatform observed(options);
    VoiceController controller(observed.platform());
    const bool isOnTerminal = !options.json && isatty(STDOUT_FILENO) != 0;
    std::optional<StatusLine> statusLine;
    if (isOnTerminal) {
        statusLine.emplace(controller, terminal.out);
    }
    ListenReport report({}, options.json, terminal, [&statusLine] {
        if (statusLine) {
            statusLine->erase();
        }
    });
    observed.setReport(report);
    report.began(observed.start());

    QObject::connect(&controller, &VoiceController::willAct, &controller, [&](const Decision& decision) {
        report.command(observed.seconds(), controller.lastTranscript(), controller.useWakeWord(), decision);
    });
    if (!isOnTerminal && !options.json) {
        QObject::connect(&controller, &VoiceController::statusMessageChanged, &controller,
                         [&] { terminal.out << controller.statusMessage().toStdString() << std::endl; });
    }
    const Interruption interruption([&] {
        controller.setIsListening(false);
        QCoreApplication::quit();
    });
    controller.setIsListening(true);
    QCoreApplication::exec();
    if (statusLine) {
        statusLine->erase();
    }
    return ExitStatus::success;
}

} // namespace brivandel
