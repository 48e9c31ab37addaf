#pragma once

#include "platform/AudioEngine.h"
#include "platform/linux/audio/CaptureStream.h"
#include "platform/linux/audio/PulseAudioContext.h"

#include <chrono>
#include <memory>
#include <optional>

namespace brivandel {

/// Captures from one source of the sound server, in its own rate and channels. A chosen device that goes ends
/// the capture; with none chosen, the default source is followed, also while running. The tap runs on the
/// context's loop under its lock, and this class adds no lock of its own. Capture that has ended, of which
/// the sound that stays away tells, is not taken up again before the next start().
class PulseAudioEngine final : public AudioEngine {
public:
    /// What setInputDevice() returns for an identifier that stands for no device: the four-character code
    /// '!dev'.
    static constexpr std::int32_t badDeviceStatus = 0x21646576;
    /// A stopped stream is closed after this time unless it is started again. A restart of recognition waits
    /// 1 second at the longest, and a real stop must put out the desktop's microphone sign soon.
    static constexpr std::chrono::milliseconds closeDelay{1500};

    explicit PulseAudioEngine(PulseAudioContext& context);
    ~PulseAudioEngine() override;

    /// No rate and no channels when there is no input.
    [[nodiscard]] AudioFormat inputFormat() override;
    /// The sound comes in the input's own format, which may change with the default source: each buffer tells
    /// its rate.
    void installTap(std::uint32_t bufferSizeFrames, const AudioFormat& format, TapBlock block) override;
    void removeTap() override;

    void prepare() override;
    [[nodiscard]] std::optional<QString> start() override;
    void stop() override;

    void followDefaultInput() override;
    [[nodiscard]] std::int32_t setInputDevice(AudioDeviceID device) override;

private:
    struct Tap {
        std::uint32_t bufferSizeFrames;
        TapBlock block;
    };

    [[nodiscard]] const AudioSource* source(const AudioServer& server) const;
    [[nodiscard]] QString missingSource(const AudioServer& server) const;
    /// Brings the stream in line with what is wanted; the description of what failed.
    [[nodiscard]] std::optional<QString> update(const AudioServer& server);
    /// As update(), where nobody asks what failed: no sound comes then.
    void updateWhileRunning();
    [[nodiscard]] std::optional<QString> openStream(const AudioSource& source);
    void rest();
    void followDefault();

    PulseAudioContext& context_;
    // All below is guarded by the loop's lock.
    std::optional<Tap> tap_;
    bool isRunning_ = false;
    std::optional<QString> chosenUid_;
    /// The name of the chosen device, for the message when it is not there.
    QString chosenName_;
    std::unique_ptr<CaptureStream> stream_;
    LoopTimer close_;
    std::unique_ptr<PulseAudioContext::Subscription> subscription_;
};

} // namespace brivandel
