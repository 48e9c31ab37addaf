#pragma once

#include "platform/linux/recognition/RecognitionSession.h"
#include "platform/linux/recognition/Resampler.h"

#include <memory>
#include <span>
#include <vector>

namespace brivandel {

/// A session that takes mono sound at any rate. Any one thread at a time.
class SoundInput {
public:
    explicit SoundInput(RecognitionSession session) : session_(std::move(session)) {}

    void process(std::span<const float> samples, double sampleRateHz);
    void finish(RecognitionSession::Ending ending);
    /// Some samples were lost here.
    void skip() { session_.skip(); }
    void fail(const QString& error) { session_.fail(error); }

    [[nodiscard]] bool hasEnded() const { return session_.hasEnded(); }

private:
    void flush();

    RecognitionSession session_;
    double sampleRateHz_ = 0;
    std::unique_ptr<Resampler> resampler_;
    std::vector<float> resampled_;
};

} // namespace brivandel
