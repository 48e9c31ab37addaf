#include "platform/Diagnosis.h"
#include "platform/linux/TargetChoice.h"
#include "platform/linux/audio/PulseAudioContext.h"
#include "platform/linux/audio/PulseAudioEngine.h"
#include "platform/linux/desktop/DesktopInquiry.h"
#include "platform/linux/desktop/SystemTray.h"
#include "platform/linux/keys/X11KeySender.h"
#include "platform/linux/recognition/RecognitionProblems.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <semaphore>
#include <utility>

namespace brivandel {

using namespace std::chrono_literals;
using State = Finding::State;

namespace {

Finding recogniser() {
    const QString subject = QStringLiteral("recogniser");
    if (const auto problem = recognitionModelProblem()) {
        return {subject, State::Missing, *problem,
                QStringLiteral("install the Debian package pocketsphinx-en-us")};
    }
    return {subject, State::Well, QStringLiteral("offline, American English"), {}};
}

// The loudest sample of a moment's sound; none when no sound comes.
std::optional<float> listenForAMoment(PulseAudioContext& context, std::optional<AudioDeviceID> device,
                                      QString& failure) {
    constexpr std::uint32_t blockFrameCount = 1024;
    constexpr int wantedBlocks = 20; // a good 0.4 s at 48 kHz: the first blocks of some servers are empty
    constexpr std::chrono::seconds patience{3}; // PulseAudio was seen to take 2.2 s for its first sound

    // The tap must not wait: it counts, and a semaphore tells when there is enough.
    std::atomic<float> loudest = 0;
    std::atomic<int> blocks = 0;
    std::binary_semaphore enough(0);

    PulseAudioEngine engine(context);
    if (device) {
        static_cast<void>(engine.setInputDevice(*device));
    }
    engine.installTap(blockFrameCount, engine.inputFormat(), [&](const AudioBuffer& buffer) {
        float loudestHere = loudest.load(std::memory_order_relaxed);
        for (std::uint32_t frame = 0; frame < buffer.frameLength; ++frame) {
            loudestHere = std::max(loudestHere, std::abs(buffer.channels[0][frame]));
        }
        loudest.store(loudestHere, std::memory_order_relaxed);
        if (blocks.fetch_add(1, std::memory_order_relaxed) + 1 == wantedBlocks) {
            enough.release();
        }
    });
    if (auto problem = engine.start()) {
        failure = *problem;
        return std::nullopt;
    }
    const bool came = enough.try_acquire_for(patience);
    engine.stop();
    engine.removeTap();
    if (!came) {
        failure = QStringLiteral("no sound arrives from it");
        return std::nullopt;
    }
    return loudest.load();
}

void lookAtSound(std::vector<Finding>& findings, const QString& chosenUid) {
    PulseAudioContext context;
    const AudioServer server = context.server();
    const QString serverSubject = QStringLiteral("sound server");
    const QString microphoneSubject = QStringLiteral("microphone");
    if (!server.isConnected) {
        findings.push_back({serverSubject, State::Missing, server.problem,
                            QStringLiteral("start PipeWire (with pipewire-pulse) or PulseAudio")});
        return;
    }
    findings.push_back({serverSubject, State::Well, server.name, {}});
    const AudioSource* chosen = server.sourceWithUid(chosenUid);
    if (!chosenUid.isEmpty() && chosen == nullptr) {
        findings.push_back(
            {microphoneSubject, State::Missing,
             QStringLiteral("the chosen input, ") + chosenUid + QStringLiteral(", is not connected"),
             QStringLiteral("plug it in, or choose another in the settings")});
        return;
    }
    const AudioSource* microphone = chosen != nullptr ? chosen : server.defaultMicrophone();
    if (microphone == nullptr) {
        findings.push_back({microphoneSubject, State::Missing,
                            QStringLiteral("the sound server has no input"),
                            QStringLiteral("plug one in, or choose one in the desktop's sound settings")});
        return;
    }
    QString failure;
    const auto loudest = listenForAMoment(
        context, chosen != nullptr ? std::optional(chosen->deviceID) : std::nullopt, failure);
    if (!loudest) {
        findings.push_back({microphoneSubject, State::Missing,
                            microphone->description + QStringLiteral(": ") + failure,
                            QStringLiteral("look whether another program holds it, or choose another")});
        return;
    }
    constexpr float silentFloor = 1e-5F; // -100 dB: below the noise of any microphone that is switched on
    if (*loudest < silentFloor) {
        findings.push_back({microphoneSubject, State::Wanting,
                            microphone->description + QStringLiteral(" is perfectly silent"),
                            QStringLiteral("look whether it is muted or switched off")});
        return;
    }
    const double decibels = 20 * std::log10(double{*loudest});
    findings.push_back(
        {microphoneSubject,
         State::Well,
         microphone->description + QStringLiteral(", loudest just now %1 dB").arg(decibels, 0, 'f', 0),
         {}});
}

Finding lookAtTarget(const std::optional<KeySenderReport::Target>& found, const TargetName& wanted,
                     const TargetSetting& setting) {
    const QString subject = QStringLiteral("target");
    if (!setting.problem.isEmpty()) {
        return {subject, State::Wanting, setting.problem,
                QStringLiteral("make the file readable, or remove it")};
    }
    const QString saidBy =
        setting.saidBy.isEmpty() ? QString() : QStringLiteral(" (named by %1)").arg(setting.saidBy);
    if (!found) {
        return {subject, State::Wanting,
                QStringLiteral("no program \"%1\" has a window").arg(wanted.text) + saidBy,
                QStringLiteral("start it, or name your workstation with --target, BRIVANDEL_TARGET or in %1")
                    .arg(targetFilePath())};
    }
    return {subject,
            State::Well,
            QStringLiteral("%1, window \"%2\"").arg(found->program, found->windowTitle) + saidBy,
            {}};
}

void lookAtProfiles(std::vector<Finding>& findings, const KnownWorkstations& known) {
    for (const QString& problem : known.problems) {
        findings.push_back({QStringLiteral("profile"), State::Wanting, problem,
                            QStringLiteral("mend the file, or remove it")});
    }
}

void lookAtKeys(std::vector<Finding>& findings, const QString& wanted) {
    const auto targetChoice = readTargetChoice(wanted);
    const TargetOutlook outlook = targetChoice->look();
    lookAtProfiles(findings, targetChoice->known());
    const KeySenderReport report = X11KeySender().report(outlook.target());
    const QString display = QStringLiteral("display");
    if (!report.problem.isEmpty()) {
        findings.push_back({display, State::Missing, report.problem,
                            QStringLiteral("run the program in an X11 session, or under Xwayland")});
        return;
    }
    findings.push_back({display, State::Well, qEnvironmentVariable("DISPLAY"), {}});
    findings.push_back(
        report.windowManager.isEmpty()
            ? Finding{QStringLiteral("window manager"), State::Wanting, QStringLiteral("there is none"),
                      QStringLiteral(
                          "start one: without it, windows cannot be brought to the front properly")}
            : Finding{QStringLiteral("window manager"), State::Well, report.windowManager, {}});
    const auto* const standIn = std::get_if<StandIn>(&outlook.choice);
    if (standIn == nullptr && targetChoice->setting().problem.isEmpty()) {
        findings.push_back({QStringLiteral("target"), State::Wanting, std::get<QString>(outlook.choice),
                            QStringLiteral("or name one with --target or BRIVANDEL_TARGET")});
        return;
    }
    Finding target = lookAtTarget(report.target, outlook.target(), targetChoice->setting());
    if (target.state == State::Well && standIn->keys) {
        target.detail += QStringLiteral(", in the keys of its profile");
    }
    findings.push_back(target);
}

void lookAtDesktop(std::vector<Finding>& findings) {
    const DesktopInquiry desktop = inquireDesktop();
    const QString notifications = QStringLiteral("notifications");
    if (desktop.busProblem) {
        findings.push_back({notifications, State::Wanting, *desktop.busProblem,
                            QStringLiteral("start the program in a desktop session")});
    } else if (!desktop.notificationService) {
        findings.push_back({notifications, State::Wanting, QStringLiteral("no service shows them"),
                            QStringLiteral("start one, as for example dunst")});
    } else {
        findings.push_back({notifications, State::Well, *desktop.notificationService, {}});
    }
    const QString tray = QStringLiteral("tray");
    if (desktop.hasStatusItemHost) {
        findings.push_back({tray, State::Well, QStringLiteral("a panel that shows status items"), {}});
    } else if (hasXEmbedTray()) {
        findings.push_back({tray, State::Well, QStringLiteral("a tray of the older kind"), {}});
    } else {
        findings.push_back({tray, State::Wanting, QStringLiteral("there is none"),
                            QStringLiteral("start a panel with a tray to have the program in sight")});
    }
}

} // namespace

std::vector<Finding> diagnose(const DiagnosisOptions& options) {
    std::vector<Finding> findings = {recogniser()};
    lookAtSound(findings, options.inputDeviceUID);
    lookAtKeys(findings, options.target);
    lookAtDesktop(findings);
    return findings;
}

} // namespace brivandel
