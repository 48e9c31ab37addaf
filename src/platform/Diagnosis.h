#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace brivandel {

/// One thing that the program needs of its system, and how it stands with it.
struct Finding {
    enum class State : std::uint8_t {
        Well,
        Wanting, ///< something will not work, but listening does
        Missing, ///< listening does not work without it
    };

    QString subject; ///< as in "microphone"
    State state = State::Well;
    QString detail; ///< what was found, or what is wrong
    QString remedy; ///< what to do about it; empty when all is well
};

/// What is to be looked at.
struct DiagnosisOptions {
    QString target;         ///< which program stands for "Logic Pro"; empty: the platform's own rule
    QString inputDeviceUID; ///< the input that the settings name; empty: the system's default
};

/// Looks at everything that listening and sending keys need; sends nothing. Takes up to a few seconds, since
/// it listens to the microphone for a moment. Main thread of a program that does nothing else. Defined once a
/// system.
[[nodiscard]] std::vector<Finding> diagnose(const DiagnosisOptions& options);

} // namespace brivandel
