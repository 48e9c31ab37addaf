#include "platform/linux/desktop/AlertTone.h"

#include <pulse/error.h>
#include <pulse/simple.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <numbers>

namespace brivandel {

namespace {

struct FreeConnection {
    void operator()(pa_simple* connection) const { pa_simple_free(connection); }
};

} // namespace

std::vector<float> alertTone() {
    constexpr double durationSeconds = 0.25;
    constexpr double attackSeconds = 0.005;
    constexpr double decaySeconds = 0.06;
    constexpr double frequencyHz = 880;
    constexpr double loudness = 0.3;
    std::vector<float> samples(static_cast<std::size_t>(durationSeconds * alertToneRateHz));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double seconds = static_cast<double>(i) / alertToneRateHz;
        const double envelope = (1 - std::exp(-seconds / attackSeconds)) * std::exp(-seconds / decaySeconds);
        const double phase = 2 * std::numbers::pi * frequencyHz * seconds;
        samples[i] = static_cast<float>(loudness * envelope * (std::sin(phase) + 0.3 * std::sin(2 * phase)));
    }
    return samples;
}

std::optional<QString> playAlertTone() {
    const pa_sample_spec format{.format = PA_SAMPLE_FLOAT32NE, .rate = alertToneRateHz, .channels = 1};
    int error = 0;
    const std::unique_ptr<pa_simple, FreeConnection> connection(pa_simple_new(
        nullptr, "Brivandel", PA_STREAM_PLAYBACK, nullptr, "Alert", &format, nullptr, nullptr, &error));
    const std::vector<float> samples = alertTone();
    if (connection == nullptr ||
        pa_simple_write(connection.get(), samples.data(), samples.size() * sizeof(float), &error) < 0 ||
        pa_simple_drain(connection.get(), &error) < 0) {
        return QString::fromUtf8(pa_strerror(error));
    }
    return std::nullopt;
}

} // namespace brivandel
