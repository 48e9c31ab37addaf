#include "platform/linux/audio/PulseAudioEngine.h"

#include <tuple>
#include <utility>

namespace brivandel {

PulseAudioEngine::PulseAudioEngine(PulseAudioContext& context)
    : context_(context)
    , close_(context.loop(), [this] { stream_.reset(); })
    , subscription_(context.observe([this] { followDefault(); })) {}

PulseAudioEngine::~PulseAudioEngine() {
    subscription_.reset();
    const PulseAudioLoop::Lock lock(context_.loop());
    close_.cancel();
    stream_.reset();
}

AudioFormat PulseAudioEngine::inputFormat() {
    const PulseAudioLoop::Lock lock(context_.loop());
    const AudioSource* input = source(context_.awaitServer(lock));
    return input != nullptr ? input->format() : AudioFormat{.sampleRateHz = 0, .channelCount = 0};
}

void PulseAudioEngine::installTap(std::uint32_t bufferSizeFrames, const AudioFormat& /*format*/,
                                  TapBlock block) {
    std::optional<Tap> tap(Tap{bufferSizeFrames, std::move(block)});
    const PulseAudioLoop::Lock lock(context_.loop());
    tap_.swap(tap);
    updateWhileRunning();
}

void PulseAudioEngine::removeTap() {
    // Freed after the lock is given back: what the block holds is not the audio thread's affair.
    std::optional<Tap> tap;
    const PulseAudioLoop::Lock lock(context_.loop());
    tap_.swap(tap);
    rest();
}

void PulseAudioEngine::prepare() {
    // Nothing takes time that could be spent in advance: the connection and the lists are up already.
}

std::optional<QString> PulseAudioEngine::start() {
    const PulseAudioLoop::Lock lock(context_.loop());
    if (!tap_) {
        isRunning_ = true;
        return std::nullopt;
    }
    auto problem = update(context_.awaitServer(lock));
    isRunning_ = !problem;
    return problem;
}

void PulseAudioEngine::stop() {
    const PulseAudioLoop::Lock lock(context_.loop());
    isRunning_ = false;
    rest();
}

void PulseAudioEngine::followDefaultInput() {
    const PulseAudioLoop::Lock lock(context_.loop());
    if (chosenUid_) {
        chosenUid_.reset();
        updateWhileRunning();
    }
}

std::int32_t PulseAudioEngine::setInputDevice(AudioDeviceID device) {
    const PulseAudioLoop::Lock lock(context_.loop());
    auto uid = context_.uidForDeviceID(device);
    if (!uid) {
        return badDeviceStatus;
    }
    chosenUid_ = std::move(uid);
    if (const AudioSource* chosen = context_.knownServer().sourceWithUid(*chosenUid_)) {
        chosenName_ = chosen->description;
    }
    updateWhileRunning();
    return 0;
}

const AudioSource* PulseAudioEngine::source(const AudioServer& server) const {
    return chosenUid_ ? server.sourceWithUid(*chosenUid_) : server.defaultMicrophone();
}

QString PulseAudioEngine::missingSource(const AudioServer& server) const {
    if (!server.isConnected) {
        return server.problem.isEmpty()
                   ? QStringLiteral("The sound server (PulseAudio or PipeWire) does not answer")
                   : QStringLiteral("No sound server (PulseAudio or PipeWire): %1").arg(server.problem);
    }
    if (chosenUid_) {
        return QStringLiteral("The audio input \"%1\" is not connected").arg(chosenName_);
    }
    return server.hasMicrophone() ? QStringLiteral("The system has no default audio input")
                                  : QStringLiteral("No microphone is connected");
}

std::optional<QString> PulseAudioEngine::update(const AudioServer& server) {
    const AudioSource* input = source(server);
    if (input == nullptr) {
        stream_.reset();
        return missingSource(server);
    }
    close_.cancel();
    if (stream_ != nullptr && stream_->isAlive() && stream_->source() == *input &&
        stream_->blockFrames() == tap_->bufferSizeFrames) {
        stream_->resume();
        return std::nullopt;
    }
    return openStream(*input);
}

void PulseAudioEngine::updateWhileRunning() {
    if (isRunning_ && tap_) {
        std::ignore = update(context_.knownServer());
    }
}

std::optional<QString> PulseAudioEngine::openStream(const AudioSource& source) {
    // First of all, for PipeWire 0.3.65 can starve one of two recordings of the same client.
    stream_.reset();
    stream_ = std::make_unique<CaptureStream>(context_, source, tap_->bufferSizeFrames,
                                              [this](const AudioBuffer& buffer) {
                                                  if (tap_) {
                                                      tap_->block(buffer);
                                                  }
                                              });
    return stream_->problem();
}

void PulseAudioEngine::rest() {
    if (stream_ != nullptr) {
        stream_->suspend();
        close_.start(closeDelay);
    }
}

void PulseAudioEngine::followDefault() {
    const AudioSource* input = context_.knownServer().defaultMicrophone();
    if (isRunning_ && tap_ && !chosenUid_ && input != nullptr && stream_ != nullptr &&
        input->uid != stream_->source().uid) {
        updateWhileRunning();
    }
}

} // namespace brivandel
