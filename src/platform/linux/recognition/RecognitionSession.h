#pragma once

#include "platform/SpeechRecognition.h"
#include "platform/linux/recognition/Dither.h"
#include "platform/linux/recognition/Endpointer.h"
#include "platform/linux/recognition/HeardSound.h"
#include "platform/linux/recognition/NoiseSuppressor.h"
#include "platform/linux/recognition/RecognitionFormat.h"
#include "platform/linux/recognition/UtteranceDecoder.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace brivandel {

/// One session of recognition, from its first sample to its end. It knows no threads and no clock: time is
/// the sound that goes by, so the same sound always gives the same results. Results are delivered during the
/// calls.
///
/// A partial result is acted upon as soon as it contains a command, so none is delivered that could still
/// become another command: "stop" waits for the silence in which "recording" does not come.
class RecognitionSession {
public:
    /// Silence after which a phrase has ended: one that no other phrase continues, and one that might go on.
    /// The first because a decoder jumps ahead to a forced completion, the second so that people may hesitate
    /// within a phrase.
    static constexpr std::chrono::milliseconds settling{60};
    static constexpr std::chrono::milliseconds settlingIfItMayGoOn{360};
    /// Silence in which the whole utterance is gone over once more, when its words are not clear yet: so long
    /// that it is seldom in vain.
    static constexpr std::chrono::milliseconds scrutiny{120};
    /// Nobody takes longer for a command. Of what is longer only that is gone over in its pauses which seems
    /// to be for us: music is long, and so is talk.
    static constexpr std::chrono::milliseconds longestCommand{2800};
    /// A phrase that was broken off is heard again with what follows within this time.
    static constexpr std::chrono::seconds longestThought{3};
    /// The decoder is asked at this interval, and must give the same answer twice.
    static constexpr std::chrono::milliseconds step{30};
    /// An utterance that has not ended by itself is ended, and its last part heard again with what follows.
    static constexpr std::chrono::milliseconds longestUtterance{6000};
    static constexpr std::chrono::milliseconds overlap{1500};
    /// A session ends with an error after so much sound, or the transcript and the awake state would last for
    /// ever. An utterance that is going on may end first.
    static constexpr std::chrono::seconds longestSession{60};

    enum class Reporting : std::uint8_t { PartialResults, FinalResultOnly };
    /// Whether the sound is over because there is no more, or was cut off in the middle of what goes on.
    enum class Ending : std::uint8_t { Complete, CutOff };

    /// A decoder for one utterance. Null: none can be had, which ends the session.
    struct Lease {
        std::shared_ptr<UtteranceDecoder> decoder;
        bool wakePhraseRequired = true;
    };
    using LeaseDecoder = std::function<Lease()>;

    /// Both handlers are called during the calls below; the second may be empty.
    struct Handlers {
        SpeechRecognizer::ResultHandler deliver;
        SpeechRecognizer::VerdictHandler judge;
    };

    RecognitionSession(Reporting reporting, LeaseDecoder leaseDecoder, Handlers handlers);

    /// Samples at 16 kHz. After the end they are ignored.
    void process(std::span<const float> samples);
    /// Some sound was lost: what is being said cannot be understood any more.
    void skip();
    /// Delivers what was heard as the final result, if anything was, and ends.
    void finish(Ending ending);
    /// Delivers the error and ends.
    void fail(const QString& error);

    [[nodiscard]] bool hasEnded() const { return ended_; }

private:
    struct Utterance {
        Lease lease;
        HeardSound unprocessed = {};
        AudioTime length{0};
        std::optional<Reading> candidate = std::nullopt;
        std::optional<Reading> delivered = std::nullopt;
        /// Of the silence that goes on.
        std::optional<Conclusion> conclusion = std::nullopt;
        /// The transcript of what was said before it.
        QString before = {};
        HeardSound sound = {};
    };
    /// A phrase that was broken off.
    struct Unfinished {
        HeardSound sound;
        QString before;
        AudioTime end;
    };

    void processFrame(std::span<const std::int16_t, samplesPerFrame> frame);
    /// The frame before this one. What was heard has a length of 0 when there was none.
    [[nodiscard]] HeardSound withoutNoise(std::span<const std::int16_t, samplesPerFrame> frame);
    void beginUtterance();
    void feed(const HeardSound& sound);
    void considerInterim();
    void endUtterance(Ending ending);
    void cutUtterance();
    [[nodiscard]] bool isSettled(const Reading& reading) const;
    [[nodiscard]] std::optional<Reading> readingInSilence();
    [[nodiscard]] static QString transcriptOf(const Utterance& utterance, const Reading& reading);
    void deliverTranscript(const QString& transcript, bool isFinal);

    Reporting reporting_;
    LeaseDecoder leaseDecoder_;
    Handlers handlers_;

    Dither dither_;
    Endpointer endpointer_;
    std::vector<std::int16_t> frame_;
    NoiseSuppressor suppressor_;
    /// What was put into the suppressor last and comes out with the next frame; none at first, and after a
    /// loss.
    std::vector<std::int16_t> lastFrame_;
    HeardSound recent_;
    AudioTime heard_{0};
    std::optional<Utterance> utterance_;
    std::optional<Unfinished> unfinished_;

    QString transcript_;
    QString lastDelivered_;
    bool awake_ = false;
    bool ended_ = false;
};

} // namespace brivandel
