#include "platform/Diagnosis.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacServices.h"
#include "platform/macos/MacTrust.h"

#include <algorithm>
#include <utility>

namespace brivandel {

using State = Finding::State;

namespace {

QString privacySettings(const QString& list) {
    return QStringLiteral("allow Brivandel in System Settings, Privacy & Security, ") + list;
}

// What is wrong with a consent that was not given, and what to do about it.
Finding consentFinding(const QString& subject, Consent consent, State stateWithout, const QString& list,
                       const QString& whenAsked) {
    switch (consent) {
    case Consent::Given:
    case Consent::Unknown:
        break;
    case Consent::NotAskedYet:
        return {subject, stateWithout, QStringLiteral("you have not been asked yet"), whenAsked};
    case Consent::Refused:
        return {subject, stateWithout, QStringLiteral("not allowed"), privacySettings(list)};
    case Consent::Restricted:
        return {subject, stateWithout, QStringLiteral("not allowed on this machine"),
                QStringLiteral("ask whoever administers it")};
    }
    return {subject, State::Well, QStringLiteral("allowed"), {}};
}

Finding recogniser() {
    const QString subject = QStringLiteral("recogniser");
    Finding finding =
        consentFinding(subject, speechConsent(), State::Missing, QStringLiteral("Speech Recognition"),
                       QStringLiteral("start Brivandel and allow it when the system asks"));
    if (finding.state != State::Well) {
        return finding;
    }
    if (const QString problem = recognizerProblem(); !problem.isEmpty()) {
        return {subject, State::Missing, problem,
                QStringLiteral("look whether the network is there, which the system's recogniser may need")};
    }
    finding.detail = recognizesOnThisMachine()
                         ? QStringLiteral("the system's, American English; it may use its server")
                         : QStringLiteral("the system's, American English, by its server");
    return finding;
}

Finding microphone(const QString& chosenUid) {
    const QString subject = QStringLiteral("microphone");
    Finding finding =
        consentFinding(subject, microphoneConsent(), State::Missing, QStringLiteral("Microphone"),
                       QStringLiteral("start Brivandel and allow it when the system asks"));
    if (finding.state != State::Well) {
        return finding;
    }
    const auto inputs = makeMacAudioDevices()->inputDevices();
    if (inputs.isEmpty()) {
        return {subject, State::Missing, QStringLiteral("there is no input"), QStringLiteral("plug one in")};
    }
    if (chosenUid.isEmpty()) {
        finding.detail = QStringLiteral("the system's default input");
        return finding;
    }
    const auto chosen = std::ranges::find(inputs, chosenUid, &AudioDevice::uid);
    if (chosen == inputs.end()) {
        return {subject, State::Missing,
                QStringLiteral("the chosen input, ") + chosenUid + QStringLiteral(", is not connected"),
                QStringLiteral("plug it in, or choose another in the settings")};
    }
    finding.detail = chosen->name;
    return finding;
}

Finding accessibility() {
    return consentFinding(QStringLiteral("accessibility"), accessibilityConsent(), State::Wanting,
                          QStringLiteral("Accessibility"), {});
}

Finding automation() {
    const Consent consent = automationConsent();
    Finding finding =
        consentFinding(QStringLiteral("system events"), consent, State::Wanting, QStringLiteral("Automation"),
                       QStringLiteral("allow it when the first command is carried out"));
    if (consent == Consent::Unknown) {
        finding.detail = QStringLiteral("the system tells only once a command has been carried out");
    }
    return finding;
}

Finding target(const QString& wanted) {
    const QString subject = QStringLiteral("target");
    const QString workstation = QStringLiteral("Logic Pro");
    if (!wanted.isEmpty() && wanted != workstation) {
        return {subject, State::Wanting, QStringLiteral("commands always go to %1 here").arg(workstation),
                QStringLiteral("leave out --target")};
    }
    if (!isRunning(workstation)) {
        return {subject, State::Wanting, workstation + QStringLiteral(" is not running"),
                QStringLiteral("start it")};
    }
    return {subject, State::Well, workstation, {}};
}

Finding notifications() {
    const QString subject = QStringLiteral("notifications");
    if (bundleIdentifier().isEmpty()) {
        return {subject, State::Wanting, QStringLiteral("the program runs outside its bundle"),
                QStringLiteral("start Brivandel.app")};
    }
    return {subject, State::Well, QStringLiteral("as the system's settings have it"), {}};
}

} // namespace

std::vector<Finding> diagnose(const DiagnosisOptions& options) {
    return {recogniser(),           microphone(options.inputDeviceUID),
            accessibility(),        automation(),
            target(options.target), notifications()};
}

} // namespace brivandel
