#include "platform/linux/audio/TonePlayer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <numbers>
#include <utility>

namespace brivandel {

TonePlayer::TonePlayer(const QString& sink, const pa_channel_map& map, std::uint32_t sampleRateHz,
                       std::vector<double> frequenciesHz)
    : frequenciesHz_(std::move(frequenciesHz))
    , sampleRateHz_(sampleRateHz) {
    using namespace std::chrono_literals;
    const PulseAudioLoop::Lock lock(loop_);
    const auto wake = [](auto*, void* self) { static_cast<TonePlayer*>(self)->loop_.wake(); };

    context_ = pa_context_new(&loop_.api(), "tone");
    pa_context_set_state_callback(context_, wake, this);
    pa_context_connect(context_, nullptr, PA_CONTEXT_NOFLAGS, nullptr);
    loop_.waitUntil(lock, 5s, [this] { return pa_context_get_state(context_) == PA_CONTEXT_READY; });
    if (pa_context_get_state(context_) != PA_CONTEXT_READY) {
        ADD_FAILURE() << "no sound server to play to";
        return;
    }

    const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, sampleRateHz, map.channels};
    stream_ = pa_stream_new(context_, "tone", &format, &map);
    pa_stream_set_state_callback(stream_, wake, this);
    pa_stream_set_write_callback(
        stream_,
        [](pa_stream*, std::size_t byteCount, void* self) {
            static_cast<TonePlayer*>(self)->write(byteCount);
        },
        this);
    constexpr auto serversChoice = static_cast<std::uint32_t>(-1);
    const auto latencyBytes = static_cast<std::uint32_t>(pa_usec_to_bytes(20'000, &format));
    const pa_buffer_attr buffering{serversChoice, latencyBytes, serversChoice, serversChoice, serversChoice};
    pa_stream_connect_playback(stream_, sink.toUtf8().constData(), &buffering,
                               static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_DONT_MOVE),
                               nullptr, nullptr);
    loop_.waitUntil(lock, 5s, [this] { return pa_stream_get_state(stream_) == PA_STREAM_READY; });
    EXPECT_EQ(pa_stream_get_state(stream_), PA_STREAM_READY) << "cannot play to " << sink.toStdString();
}

TonePlayer::~TonePlayer() {
    const PulseAudioLoop::Lock lock(loop_);
    if (stream_ != nullptr) {
        pa_stream_set_state_callback(stream_, nullptr, nullptr);
        pa_stream_set_write_callback(stream_, nullptr, nullptr);
        pa_stream_disconnect(stream_);
        pa_stream_unref(stream_);
    }
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(context_);
}

void TonePlayer::write(std::size_t byteCount) {
    const std::size_t channelCount = frequenciesHz_.size();
    std::vector<float> samples(byteCount / sizeof(float) / channelCount * channelCount);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::size_t frame = framesWritten_ + i / channelCount;
        const double seconds = static_cast<double>(frame) / sampleRateHz_;
        const double angle = 2 * std::numbers::pi * frequenciesHz_[i % channelCount] * seconds;
        samples[i] = static_cast<float>(amplitude * std::sin(angle));
    }
    framesWritten_ += samples.size() / channelCount;
    pa_stream_write(stream_, samples.data(), samples.size() * sizeof(float), nullptr, 0, PA_SEEK_RELATIVE);
}

pa_channel_map monoMap() {
    pa_channel_map map;
    return *pa_channel_map_init_mono(&map);
}

pa_channel_map surroundMap() {
    pa_channel_map map;
    return *pa_channel_map_parse(&map, "front-left,front-right,rear-left,rear-right,front-center,lfe");
}

} // namespace brivandel
