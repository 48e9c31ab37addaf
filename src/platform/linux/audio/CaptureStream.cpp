#include "platform/linux/audio/CaptureStream.h"

#include <pulse/error.h>

#include <utility>

namespace brivandel {

void CaptureStream::Release::operator()(pa_stream* stream) const {
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_set_read_callback(stream, nullptr, nullptr);
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
}

CaptureStream::CaptureStream(PulseAudioContext& context, AudioSource source, std::uint32_t blockFrames,
                             BlockSplitter::Deliver deliver)
    : source_(std::move(source))
    , blockFrames_(blockFrames)
    , frameSizeBytes_(std::size_t{source_.channelMap.channels} * sizeof(float))
    , splitter_(source_.sampleRateHz, source_.channelMap.channels, blockFrames, std::move(deliver))
    , lastArrival_(std::chrono::steady_clock::now())
    , context_(context.native()) {
    connect();
}

CaptureStream::~CaptureStream() = default;

bool CaptureStream::isAlive() const {
    const auto patience = hasArrived_ ? laterSoundPatience : firstSoundPatience;
    return !problem_ && std::chrono::steady_clock::now() - lastArrival_ < patience;
}

void CaptureStream::connect() {
    const pa_sample_spec format{.format = PA_SAMPLE_FLOAT32NE,
                                .rate = static_cast<std::uint32_t>(source_.sampleRateHz),
                                .channels = source_.channelMap.channels};
    stream_.reset(pa_stream_new(context_, "Voice control", &format, &source_.channelMap));
    if (stream_ == nullptr) {
        fail(pa_context_errno(context_));
        return;
    }
    pa_stream_set_state_callback(
        stream_.get(), [](pa_stream*, void* self) { static_cast<CaptureStream*>(self)->stateChanged(); },
        this);
    pa_stream_set_read_callback(
        stream_.get(), [](pa_stream*, std::size_t, void* self) { static_cast<CaptureStream*>(self)->read(); },
        this);

    constexpr auto serversChoice = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr buffering{.maxlength = serversChoice,
                                   .tlength = serversChoice,
                                   .prebuf = serversChoice,
                                   .minreq = serversChoice,
                                   .fragsize = static_cast<std::uint32_t>(blockFrames_ * frameSizeBytes_)};
    constexpr auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_DONT_MOVE);
    if (pa_stream_connect_record(stream_.get(), source_.uid.toUtf8().constData(), &buffering, flags) < 0) {
        fail(pa_context_errno(context_));
    }
}

void CaptureStream::stateChanged() {
    const pa_stream_state_t state = pa_stream_get_state(stream_.get());
    if (state == PA_STREAM_FAILED || state == PA_STREAM_TERMINATED) {
        fail(pa_context_errno(context_));
    }
}

void CaptureStream::fail(int error) {
    if (!problem_) {
        problem_ = QStringLiteral("Capture from \"%1\" ended: %2")
                       .arg(source_.description, QString::fromUtf8(pa_strerror(error)));
    }
}

void CaptureStream::read() {
    hasArrived_ = true;
    lastArrival_ = std::chrono::steady_clock::now();
    const void* data = nullptr;
    std::size_t byteCount = 0;
    while (pa_stream_readable_size(stream_.get()) > 0) {
        if (pa_stream_peek(stream_.get(), &data, &byteCount) < 0 || byteCount == 0) {
            return;
        }
        const std::size_t frameCount = byteCount / frameSizeBytes_;
        if (!isSuspended_ && data == nullptr) {
            splitter_.pushSilence(frameCount);
        } else if (!isSuspended_) {
            splitter_.push(static_cast<const float*>(data), frameCount);
        }
        pa_stream_drop(stream_.get());
    }
}

void CaptureStream::suspend() {
    isSuspended_ = true;
}

void CaptureStream::resume() {
    if (std::exchange(isSuspended_, false)) {
        splitter_.reset();
    }
}

} // namespace brivandel
