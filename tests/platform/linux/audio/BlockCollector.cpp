#include "platform/linux/audio/BlockCollector.h"

#include <cmath>
#include <complex>
#include <numbers>
#include <utility>

namespace brivandel {

AudioEngine::TapBlock BlockCollector::tap() {
    return [this](const AudioBuffer& buffer) {
        Block block{buffer.sampleRateHz, {}};
        for (const float* samples : buffer.channels) {
            block.channels.emplace_back(samples, samples + buffer.frameLength);
        }
        const std::lock_guard lock(mutex_);
        blocks_.push_back(std::move(block));
        arrived_.notify_all();
    };
}

std::vector<BlockCollector::Block> BlockCollector::next(std::size_t count,
                                                        std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    blocks_.clear();
    arrived_.wait_for(lock, patience, [&] { return blocks_.size() >= count; });
    return std::exchange(blocks_, {});
}

std::size_t BlockCollector::count() {
    const std::lock_guard lock(mutex_);
    return blocks_.size();
}

void BlockCollector::clear() {
    const std::lock_guard lock(mutex_);
    blocks_.clear();
}

std::vector<float> channelOf(const std::vector<BlockCollector::Block>& blocks, std::size_t channel) {
    std::vector<float> samples;
    for (const auto& block : blocks) {
        const auto& piece = block.channels.at(channel);
        samples.insert(samples.end(), piece.begin(), piece.end());
    }
    return samples;
}

double toneAmplitude(const std::vector<float>& samples, double frequencyHz, double sampleRateHz) {
    std::complex<double> sum = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double angle = 2 * std::numbers::pi * frequencyHz * static_cast<double>(i) / sampleRateHz;
        sum += static_cast<double>(samples[i]) * std::polar(1.0, -angle);
    }
    return 2 * std::abs(sum) / static_cast<double>(samples.size());
}

} // namespace brivandel
