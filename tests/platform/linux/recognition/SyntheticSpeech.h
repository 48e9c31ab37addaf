#pragma once

#include "platform/AudioFormat.h"

#include <QHash>
#include <QString>
#include <QTemporaryDir>

#include <chrono>
#include <vector>

namespace brivandel {

/// Samples of one or more channels that are alike.
struct Sound {
    double sampleRateHz = 0;
    std::uint32_t channelCount = 1;
    std::vector<float> samples;
};

/// Sentences spoken by the synthesiser, through its command. Each is spoken once and kept.
class SyntheticSpeech {
public:
    /// Silence before, between and after the parts, which are spoken by themselves. Empty when the commands
    /// fail.
    [[nodiscard]] Sound speak(const QString& voice, const QStringList& parts, std::chrono::milliseconds pause,
                              int rateHz, std::uint32_t channelCount);

private:
    [[nodiscard]] std::vector<float> speakPart(const QString& voice, const QString& text, int rateHz);

    QTemporaryDir folder_;
    QHash<QString, std::vector<float>> spoken_;
};

} // namespace brivandel
