#include "platform/linux/recognition/Resampler.h"

#include "platform/linux/recognition/RecognitionFormat.h"

#include <soxr.h>

#include <cmath>
#include <utility>

namespace brivandel {

void Resampler::Delete::operator()(soxr* handle) const {
    soxr_delete(handle);
}

Resampler::Resampler(double inputRateHz, Handle handle)
    : outputPerInput_(recognitionRateHz / inputRateHz)
    , handle_(std::move(handle)) {}

std::unique_ptr<Resampler> Resampler::forRate(double inputRateHz) {
    if (!(inputRateHz >= lowestRateHz && inputRateHz <= highestRateHz)) {
        return nullptr;
    }
    Handle handle;
    if (inputRateHz != recognitionRateHz) {
        const soxr_io_spec_t format = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
        // As accurate for recognition as the finer settings, and the one that answers soonest.
        const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_LQ, 0);
        const soxr_runtime_spec_t oneThread = soxr_runtime_spec(1);
        soxr_error_t error = nullptr;
        handle.reset(soxr_create(inputRateHz, recognitionRateHz, 1, &error, &format, &quality, &oneThread));
        if (error != nullptr || !handle) {
            return nullptr;
        }
    }
    return std::unique_ptr<Resampler>(new Resampler(inputRateHz, std::move(handle)));
}

void Resampler::process(std::span<const float> input, std::vector<float>& out) {
    if (!handle_) {
        out.insert(out.end(), input.begin(), input.end());
        return;
    }
    while (!input.empty()) {
        // Bounds the room that run() makes.
        const std::size_t count = std::min<std::size_t>(input.size(), 8192);
        run(input.data(), count, out);
        input = input.subspan(count);
    }
}

void Resampler::finish(std::vector<float>& out) {
    if (handle_) {
        run(nullptr, 0, out);
    }
}

void Resampler::run(const float* input, std::size_t count, std::vector<float>& out) {
    // Besides what goes in, the filter may let out what it held back.
    const auto room =
        static_cast<std::size_t>(std::ceil(static_cast<double>(count) * outputPerInput_)) + 2048;
    const std::size_t before = out.size();
    out.resize(before + room);
    std::size_t done = 0;
    soxr_process(handle_.get(), input, count, nullptr, out.data() + before, room, &done);
    out.resize(before + done);
}

} // namespace brivandel
