#pragma once

#include "platform/linux/audio/BlockSplitter.h"
#include "platform/linux/audio/PulseAudioContext.h"

#include <pulse/stream.h>

#include <chrono>
#include <memory>
#include <optional>

namespace brivandel {

/// A recording of one source, tied to that source: it ends with it and never moves to another. It asks for
/// the source's own rate and channel map, so that the server neither mixes nor reorders. All under the loop's
/// lock.
class CaptureStream {
public:
    static constexpr std::chrono::milliseconds firstSoundPatience{3000};
    static constexpr std::chrono::milliseconds laterSoundPatience{500};

    /// Begins to record; blocks of blockFrames go to deliver on the loop's thread.
    CaptureStream(PulseAudioContext& context, AudioSource source, std::uint32_t blockFrames,
                  BlockSplitter::Deliver deliver);
    ~CaptureStream();
    CaptureStream(const CaptureStream&) = delete;
    CaptureStream& operator=(const CaptureStream&) = delete;

    /// Whether sound can be expected from it: it has not ended, and what comes has not run dry. A server may
    /// take two seconds to deliver the first sound, and stops for a few hundredths of a second when it is
    /// busy.
    [[nodiscard]] bool isAlive() const;
    /// What went wrong, once it has ended.
    [[nodiscard]] const std::optional<QString>& problem() const { return problem_; }
    [[nodiscard]] const AudioSource& source() const { return source_; }
    [[nodiscard]] std::uint32_t blockFrames() const { return blockFrames_; }

    /// Throws away what comes until resumed. The server is not told to pause ("cork"): after a pause both
    /// PulseAudio and PipeWire first deliver a remnant from before it.
    void suspend();
    void resume();

private:
    struct Release {
        void operator()(pa_stream* stream) const;
    };

    void connect();
    void stateChanged();
    void read();
    void fail(int error);

    AudioSource source_;
    std::uint32_t blockFrames_;
    std::size_t frameSizeBytes_;
    BlockSplitter splitter_;
    bool isSuspended_ = false;
    bool hasArrived_ = false;
    /// Of the last sound; of the opening before there was any.
    std::chrono::steady_clock::time_point lastArrival_;
    std::optional<QString> problem_;
    pa_context* context_;
    std::unique_ptr<pa_stream, Release> stream_;
};

} // namespace brivandel
