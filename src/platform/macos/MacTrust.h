#pragma once

#include <QString>

#include <cstdint>

// What the user has allowed this program, asked without bothering the user. Main thread.
namespace brivandel {

/// How it stands with something that the user must allow.
enum class Consent : std::uint8_t {
    Given,
    NotAskedYet,
    Refused,
    Restricted, ///< by whoever administers the machine, so that the user cannot give it
    Unknown,    ///< the system does not tell
};

[[nodiscard]] Consent speechConsent();
[[nodiscard]] Consent microphoneConsent();
/// To press keys in other programs.
[[nodiscard]] Consent accessibilityConsent();
/// To tell "System Events" what to press. Unknown while that program does not run, which it does only when
/// used.
[[nodiscard]] Consent automationConsent();

/// Why the recogniser would not hear American English now, whatever the user allows; empty when it would.
[[nodiscard]] QString recognizerProblem();
/// Whether the recogniser could do without its server.
[[nodiscard]] bool recognizesOnThisMachine();

/// Whether a program of that name, as its menu bar shows it, runs in this session.
[[nodiscard]] bool isRunning(const QString& programName);

} // namespace brivandel
