#pragma once

#include "platform/linux/recognition/RecognitionSession.h"
#include "platform/linux/recognition/UtteranceDecoder.h"

#include <QStringList>

#include <chrono>
#include <cmath>
#include <random>
#include <vector>

namespace brivandel {

/// Hears what it is told.
class ScriptedDecoder final : public UtteranceDecoder {
public:
    std::optional<Reading> interimAnswer;
    Conclusion conclusion;
    std::vector<Expecting> begun;
    HeardSound heard;
    bool promising = true;
    int conclusions = 0;

    void begin(Expecting expecting) override {
        begun.push_back(expecting);
        heard.clear();
    }
    void process(const HeardSound& sound) override { heard.append(sound); }
    std::optional<Reading> interim() override { return interimAnswer; }
    bool isPromising() const override { return promising; }
    Conclusion conclude() override {
        ++conclusions;
        return conclusion;
    }
};

/// What a session delivered, one line each: "play" for a partial result, "play." for the final one, "! text"
/// for errors.
class Deliveries {
public:
    [[nodiscard]] SpeechRecognizer::ResultHandler handler() {
        return [this](const std::optional<RecognitionResult>& result, const std::optional<QString>& error) {
            if (result) {
                lines << result->formattedString + (result->isFinal ? QStringLiteral(".") : QString());
            }
            if (error) {
                lines << QStringLiteral("! ") + *error;
            }
        };
    }

    [[nodiscard]] SpeechRecognizer::VerdictHandler judge() {
        return [this](const UtteranceVerdict& verdict) { verdicts << verdict.text; };
    }

    QStringList lines;
    QStringList verdicts;
};

/// White noise of that loudness, in decibels below full scale.
class Noise {
public:
    [[nodiscard]] std::vector<float> operator()(double decibels, std::chrono::milliseconds time,
                                                int rateHz = 16000) {
        std::normal_distribution<double> distribution(0, std::pow(10, decibels / 20));
        std::vector<float> samples(static_cast<std::size_t>(rateHz * time.count() / 1000));
        for (float& sample : samples) {
            sample = static_cast<float>(distribution(random_));
        }
        return samples;
    }

    static constexpr double speech = -20;
    static constexpr double silence = -75;

private:
    std::minstd_rand random_{11};
};

} // namespace brivandel
