#include "platform/linux/recognition/RecognitionSession.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brivandel {

RecognitionSession::RecognitionSession(Reporting reporting, LeaseDecoder leaseDecoder, Handlers handlers)
    : reporting_(reporting)
    , leaseDecoder_(std::move(leaseDecoder))
    , handlers_(std::move(handlers)) {
    frame_.reserve(samplesPerFrame);
}

void RecognitionSession::process(std::span<const float> samples) {
    for (const float sample : samples) {
        if (ended_) {
            return;
        }
        frame_.push_back(dither_(sample));
        if (frame_.size() == samplesPerFrame) {
            processFrame(std::span<const std::int16_t, samplesPerFrame>(frame_));
            frame_.clear();
        }
    }
}

void RecognitionSession::processFrame(std::span<const std::int16_t, samplesPerFrame> frame) {
    heard_ += frameLength;
    const HeardSound sound = withoutNoise(frame);
    if (sound.asHeard.empty()) {
        return;
    }
    const Endpointer::Change change =
        endpointer_.push(std::span<const std::int16_t, samplesPerFrame>(sound.asHeard),
                         std::span<const std::int16_t, samplesPerFrame>(sound.withoutNoise));
    recent_.append(sound);
    recent_.keepLast(utterance_ ? overlap : Endpointer::preRoll);
    if (utterance_) {
        feed(sound);
        if (change == Endpointer::Change::End) {
            endUtterance(Ending::Complete);
        } else if (utterance_->length >= longestUtterance) {
            cutUtterance();
        }
    } else if (change == Endpointer::Change::Begin) {
        beginUtterance();
    }
    if (!ended_ && !utterance_ && heard_ >= longestSession) {
        fail(QStringLiteral("The recognition session has ended after %1 seconds.")
                 .arg(longestSession.count()));
    }
}

HeardSound RecognitionSession::withoutNoise(std::span<const std::int16_t, samplesPerFrame> frame) {
    HeardSound sound{.asHeard = std::exchange(lastFrame_, {frame.begin(), frame.end()}),
                     .withoutNoise = {frame.begin(), frame.end()}};
    suppressor_.process(std::span<std::int16_t, samplesPerFrame>(sound.withoutNoise));
    return sound;
}

void RecognitionSession::beginUtterance() {
    Lease lease = leaseDecoder_();
    if (!lease.decoder) {
        fail(QStringLiteral("The speech model could not be loaded."));
        return;
    }
    const bool mayBeCommand = awake_ || !lease.wakePhraseRequired;
    lease.decoder->begin(mayBeCommand ? Expecting::Command : Expecting::WakePhrase);
    utterance_ = Utterance{.lease = std::move(lease), .before = transcript_};
    if (const auto begun = std::exchange(unfinished_, std::nullopt);
        begun && heard_ - begun->end <= longestThought) {
        utterance_->before = begun->before;
        feed(begun->sound);
    }
    feed(recent_);
}

void RecognitionSession::feed(const HeardSound& sound) {
    HeardSound& unprocessed = utterance_->unprocessed;
    unprocessed.append(sound);
    utterance_->sound.append(sound);
    utterance_->length += sound.length();
    if (unprocessed.length() >= step) {
        utterance_->lease.decoder->process(unprocessed);
        unprocessed.clear();
        considerInterim();
    }
}

bool RecognitionSession::isSettled(const Reading& reading) const {
    return endpointer_.silence() >= (reading.mayGoOn ? settlingIfItMayGoOn : settling);
}

void RecognitionSession::considerInterim() {
    if (reporting_ == Reporting::FinalResultOnly || endpointer_.silence() < step) {
        utterance_->candidate.reset();
        utterance_->conclusion.reset();
        return;
    }
    const auto reading = readingInSilence();
    const bool again = reading && reading == utterance_->candidate;
    utterance_->candidate = reading;
    if (again && reading != utterance_->delivered && isSettled(*reading)) {
        utterance_->delivered = reading;
        deliverTranscript(transcriptOf(*utterance_, *reading), false);
    }
}

std::optional<Reading> RecognitionSession::readingInSilence() {
    auto reading = utterance_->lease.decoder->interim();
    const bool isWorthwhile =
        utterance_->length <= longestCommand || utterance_->lease.decoder->isPromising();
    if (!reading && endpointer_.silence() >= scrutiny && isWorthwhile) {
        if (!utterance_->conclusion) {
            utterance_->conclusion = utterance_->lease.decoder->conclude();
        }
        reading = utterance_->conclusion->reading;
    }
    return reading;
}

void RecognitionSession::endUtterance(Ending ending) {
    Utterance utterance = *std::exchange(utterance_, std::nullopt);
    recent_.clear();
    Conclusion conclusion = utterance.conclusion.value_or(Conclusion());
    if (!utterance.conclusion && (ending == Ending::Complete || !utterance.delivered)) {
        utterance.lease.decoder->process(utterance.unprocessed);
        conclusion = utterance.lease.decoder->conclude();
    }
    std::optional<Reading>& reading = conclusion.reading;
    // Cut off, "stop" may have been the beginning of "stop recording".
    if (reading && ending == Ending::CutOff && !isSettled(*reading)) {
        reading.reset();
    }
    // What was delivered may have been acted upon: it is not taken back for nothing.
    reading = reading ? reading : utterance.delivered;
    if (reading) {
        transcript_ = transcriptOf(utterance, *reading);
        awake_ = awake_ || reading->hasWakePhrase;
        if (reporting_ == Reporting::PartialResults && !ended_) {
            deliverTranscript(transcript_, false);
        }
    }
    if (conclusion.isUnfinished && ending == Ending::Complete) {
        unfinished_ = Unfinished{std::move(utterance.sound), utterance.before, heard_};
    }
    if (conclusion.verdict && handlers_.judge) {
        handlers_.judge(*conclusion.verdict);
    }
}

void RecognitionSession::cutUtterance() {
    // Whoever speaks without a pause may be in the middle of a command: its beginning is in the last part.
    HeardSound lastPart = std::exchange(recent_, {});
    const bool understood = utterance_->delivered.has_value();
    endUtterance(Ending::CutOff);
    if (!understood) {
        recent_ = std::move(lastPart);
    }
    if (!ended_ && heard_ < longestSession) {
        beginUtterance();
    }
}

QString RecognitionSession::transcriptOf(const Utterance& utterance, const Reading& reading) {
    return utterance.before.isEmpty() ? reading.text : utterance.before + u' ' + reading.text;
}

void RecognitionSession::deliverTranscript(const QString& transcript, bool isFinal) {
    if (transcript == lastDelivered_ && !isFinal) {
        return;
    }
    lastDelivered_ = transcript;
    handlers_.deliver(RecognitionResult{.formattedString = transcript, .isFinal = isFinal}, std::nullopt);
}

void RecognitionSession::skip() {
    utterance_.reset();
    unfinished_.reset();
    recent_.clear();
    frame_.clear();
    lastFrame_.clear();
    endpointer_ = Endpointer();
}

void RecognitionSession::finish(Ending ending) {
    if (std::exchange(ended_, true)) {
        return;
    }
    if (utterance_) {
        utterance_->unprocessed.append(withoutNoise(std::array<std::int16_t, samplesPerFrame>{}));
        endUtterance(ending);
    }
    if (!transcript_.isEmpty()) {
        deliverTranscript(transcript_, true);
    }
}

void RecognitionSession::fail(const QString& error) {
    if (!std::exchange(ended_, true)) {
        utterance_.reset();
        handlers_.deliver(std::nullopt, error);
    }
}

} // namespace brivandel
