#include "platform/linux/recognition/RecognitionSession.h"

#include "platform/linux/recognition/ScriptedDecoder.h"
#include "platform/linux/recognition/Signals.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Ending = RecognitionSession::Ending;
using Reporting = RecognitionSession::Reporting;

const auto wakePhrase = QStringLiteral("hey logic");
const auto command = QStringLiteral("hey logic undo");

Reading whole(const QString& text) {
    return {.text = text, .hasWakePhrase = text.startsWith(wakePhrase), .hasCommand = true, .isWhole = true};
}

Reading extendable(const QString& text) {
    Reading reading = whole(text);
    reading.mayGoOn = true;
    return reading;
}

class RecognitionSessionTest : public testing::Test {
protected:
    void start(Reporting reporting = Reporting::PartialResults, bool wakePhraseRequired = true) {
        session_.emplace(
            reporting,
            [this, wakePhraseRequired] {
                return RecognitionSession::Lease{decoder_, wakePhraseRequired};
            },
            RecognitionSession::Handlers{deliveries_.handler(), deliveries_.judge()});
    }
    void speak(std::chrono::milliseconds time) { session_->process(noise_(Noise::speech, time)); }
    void keepSilent(std::chrono::milliseconds time) { session_->process(noise_(Noise::silence, time)); }
    void understand(const std::optional<Reading>& reading) {
        decoder_->interimAnswer = reading;
        decoder_->conclusion.reading = reading;
    }

    std::shared_ptr<ScriptedDecoder> decoder_ = std::make_shared<ScriptedDecoder>();
    Deliveries deliveries_;
    Noise noise_;
    std::optional<RecognitionSession> session_;
};

TEST_F(RecognitionSessionTest, PhraseThatNothingExtends_IsDeliveredAfterAShortSilence) {
    start();
    keepSilent(500ms);
    understand(whole(command));
    speak(900ms);
    EXPECT_THAT(deliveries_.lines, IsEmpty()) << "a decoder jumps ahead while there is sound";
    keepSilent(50ms);
    EXPECT_THAT(deliveries_.lines, IsEmpty());
    keepSilent(70ms);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command));
}

TEST_F(RecognitionSessionTest, PhraseThatMayGoOn_WaitsForALongerSilence) {
    start();
    understand(extendable(command));
    speak(900ms);
    keepSilent(340ms);
    EXPECT_THAT(deliveries_.lines, IsEmpty());
    keepSilent(60ms);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command));
}

TEST_F(RecognitionSessionTest, HypothesisThatChangesInTheSilence_MustBeGivenTwice) {
    start();
    speak(900ms);
    for (int i = 0; i < 8; ++i) {
        understand(whole(i % 2 == 0 ? command : wakePhrase));
        keepSilent(30ms);
    }
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(RecognitionSessionTest, PauseWithinAPhrase_DeliversTheWholePhraseOnly) {
    start();
    understand(extendable(QStringLiteral("hey logic save")));
    speak(900ms);
    keepSilent(300ms);
    understand(whole(QStringLiteral("hey logic save as")));
    speak(300ms);
    keepSilent(1s);
    EXPECT_THAT(deliveries_.lines, ElementsAre(QStringLiteral("hey logic save as")));
}

TEST_F(RecognitionSessionTest, UtteranceThatOnlyTheSecondLookUnderstands_IsDeliveredSoonToo) {
    start();
    decoder_->conclusion.reading = whole(command);
    speak(900ms);
    keepSilent(110ms);
    EXPECT_THAT(deliveries_.lines, IsEmpty());
    keepSilent(90ms);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command));
}

TEST_F(RecognitionSessionTest, LongUtteranceWithoutPromise_IsLookedAtOnceMoreAtItsEndOnly) {
    start();
    decoder_->promising = false;
    decoder_->conclusion.reading = whole(command);
    speak(900ms);
    keepSilent(50ms);
    speak(900ms);
    keepSilent(50ms);
    speak(900ms);
    keepSilent(Endpointer::hangover - 20ms);
    EXPECT_EQ(decoder_->conclusions, 0);
    keepSilent(100ms);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command));
}

TEST_F(RecognitionSessionTest, SecondLook_IsTakenOnceInASilence) {
    start();
    speak(400ms);
    keepSilent(300ms);
    EXPECT_EQ(decoder_->conclusions, 1);
    speak(400ms);
    keepSilent(1s);
    EXPECT_EQ(decoder_->conclusions, 2);
}

TEST_F(RecognitionSessionTest, PhraseBrokenOff_IsHeardAgainWithWhatFollows) {
    start();
    decoder_->conclusion.reading = extendable(wakePhrase);
    decoder_->conclusion.isUnfinished = true;
    speak(900ms);
    keepSilent(1s);
    EXPECT_THAT(deliveries_.lines, ElementsAre(wakePhrase));
    decoder_->conclusion = Conclusion();
    decoder_->conclusion.reading = whole(command);
    speak(300ms);
    EXPECT_GE(decoder_->heard.length(), AudioTime(1200ms)) << "both parts";
    keepSilent(1s);
    EXPECT_THAT(deliveries_.lines, ElementsAre(wakePhrase, command)) << "the wake phrase counts once";
}

TEST_F(RecognitionSessionTest, PhraseBrokenOffLongAgo_IsForgotten) {
    start();
    decoder_->conclusion.isUnfinished = true;
    speak(900ms);
    keepSilent(RecognitionSession::longestThought + 1s);
    speak(300ms);
    EXPECT_LT(decoder_->heard.length(), AudioTime(900ms));
}

TEST_F(RecognitionSessionTest, VerdictOnAnUtterance_IsGivenOnceAtItsEnd) {
    start();
    decoder_->conclusion.verdict = UtteranceVerdict{.text = command, .reason = QStringLiteral("for a test")};
    speak(900ms);
    keepSilent(300ms);
    EXPECT_THAT(deliveries_.verdicts, IsEmpty());
    keepSilent(1s);
    EXPECT_THAT(deliveries_.verdicts, ElementsAre(command));
}

TEST_F(RecognitionSessionTest, UtteranceThatNobodyUnderstands_DeliversNothing) {
    start();
    speak(900ms);
    keepSilent(1s);
    EXPECT_EQ(decoder_->conclusions, 1);
    session_->finish(Ending::Complete);
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(RecognitionSessionTest, SecondLookThatUnderstandsNothing_DoesNotTakeBackWhatWasDelivered) {
    start();
    decoder_->interimAnswer = whole(command);
    speak(900ms);
    keepSilent(1s);
    session_->finish(Ending::Complete);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command, command + u'.'));
}

TEST_F(RecognitionSessionTest, CommandAfterThePauseThatFollowsTheWakePhrase_ContinuesTheTranscript) {
    start();
    understand(extendable(wakePhrase));
    speak(700ms);
    keepSilent(2s);
    understand(whole(QStringLiteral("undo")));
    speak(400ms);
    keepSilent(1s);
    EXPECT_THAT(decoder_->begun, ElementsAre(Expecting::WakePhrase, Expecting::Command));
    EXPECT_THAT(deliveries_.lines, ElementsAre(wakePhrase, command));
}

TEST_F(RecognitionSessionTest, WakePhraseNotRequired_CommandsAreExpectedAtOnce) {
    start(Reporting::PartialResults, false);
    speak(400ms);
    EXPECT_THAT(decoder_->begun, ElementsAre(Expecting::Command));
}

TEST_F(RecognitionSessionTest, Utterance_IsHeardFromBeforeItsOnset) {
    start();
    keepSilent(1s);
    speak(600ms);
    EXPECT_GE(decoder_->heard.length(), AudioTime(800ms));
    EXPECT_LE(decoder_->heard.length(), AudioTime(900ms));
}

TEST_F(RecognitionSessionTest, FinalResultsOnly_NothingIsDeliveredBefore) {
    start(Reporting::FinalResultOnly);
    understand(whole(command));
    speak(900ms);
    keepSilent(1s);
    EXPECT_THAT(deliveries_.lines, IsEmpty());
    session_->finish(Ending::Complete);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command + u'.'));
}

TEST_F(RecognitionSessionTest, SoundThatIsCompleteInTheMiddleOfAnUtterance_IsUnderstood) {
    start();
    understand(extendable(command));
    speak(900ms);
    session_->finish(Ending::Complete);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command + u'.'));
    EXPECT_EQ(decoder_->heard.length(), AudioTime(900ms)) << "to the last frame";
}

TEST_F(RecognitionSessionTest, SoundAsHeardAndWithoutNoise_IsOfTheSameTime) {
    start();
    keepSilent(500ms);
    speak(900ms);
    const auto& [asHeard, withoutNoise] = decoder_->heard;
    ASSERT_EQ(asHeard.size(), withoutNoise.size());
    const double together = likeness(asHeard, withoutNoise, 0);
    for (const std::size_t other : {std::size_t{1}, samplesPerFrame - 1, samplesPerFrame}) {
        EXPECT_GT(together, 2 * likeness(asHeard, withoutNoise, other)) << other;
        EXPECT_GT(together, 2 * likeness(withoutNoise, asHeard, other)) << other;
    }
}

TEST_F(RecognitionSessionTest, SoundThatIsCutOffInTheMiddleOfAnUtterance_IsNotGuessedAt) {
    start();
    understand(extendable(command));
    speak(900ms);
    session_->finish(Ending::CutOff);
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(RecognitionSessionTest, FinishedTwice_DeliversOneFinalResult) {
    start();
    understand(whole(command));
    speak(900ms);
    keepSilent(1s);
    session_->finish(Ending::CutOff);
    session_->finish(Ending::CutOff);
    speak(900ms);
    EXPECT_THAT(deliveries_.lines, ElementsAre(command, command + u'.'));
}

TEST_F(RecognitionSessionTest, SixtySecondsOfSilence_EndWithOneError) {
    start();
    keepSilent(59990ms);
    EXPECT_FALSE(session_->hasEnded());
    keepSilent(10ms);
    EXPECT_TRUE(session_->hasEnded());
    keepSilent(70s);
    session_->finish(Ending::Complete);
    EXPECT_THAT(deliveries_.lines,
                ElementsAre(QStringLiteral("! The recognition session has ended after 60 seconds.")));
}

TEST_F(RecognitionSessionTest, UtteranceAtSixtySeconds_EndsFirst) {
    start();
    keepSilent(59500ms);
    understand(whole(command));
    speak(900ms);
    EXPECT_FALSE(session_->hasEnded());
    keepSilent(1s);
    EXPECT_TRUE(session_->hasEnded());
    EXPECT_THAT(
        deliveries_.lines,
        ElementsAre(command, QStringLiteral("! The recognition session has ended after 60 seconds.")));
}

TEST_F(RecognitionSessionTest, SoundWithoutAPause_EndsTheSessionSoonAfterSixtySeconds) {
    start();
    // Swells, so that no part of it is taken for the silence of the room.
    for (int i = 0; i < 70 && !session_->hasEnded(); ++i) {
        session_->process(noise_(Noise::speech, 900ms));
        session_->process(noise_(Noise::silence, 100ms));
    }
    EXPECT_TRUE(session_->hasEnded());
    EXPECT_GT(decoder_->conclusions, 9);
}

TEST_F(RecognitionSessionTest, UtteranceThatDoesNotEnd_IsCutAndItsLastPartHeardAgain) {
    start();
    for (int i = 0; i < 7; ++i) {
        speak(900ms);
        keepSilent(100ms);
    }
    EXPECT_EQ(decoder_->begun.size(), 2U);
    EXPECT_GE(decoder_->heard.length(), AudioTime(RecognitionSession::overlap));
}

TEST_F(RecognitionSessionTest, LostSound_ForgetsTheUtterance) {
    start();
    understand(whole(command));
    speak(600ms);
    session_->skip();
    keepSilent(1s);
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(RecognitionSessionTest, NoDecoder_IsOneError) {
    decoder_.reset();
    start();
    speak(2s);
    EXPECT_THAT(deliveries_.lines, ElementsAre(QStringLiteral("! The speech model could not be loaded.")));
}

TEST_F(RecognitionSessionTest, SameSound_GivesTheSameInBlocksOfAnyLength) {
    understand(whole(command));
    const std::vector<float> sound = noise_(Noise::speech, 700ms);
    const std::vector<float> silence = noise_(Noise::silence, 500ms);
    QList<QStringList> results;
    for (const std::size_t length : {std::size_t{1}, std::size_t{333}, sound.size()}) {
        deliveries_.lines.clear();
        start();
        for (const auto* part : {&sound, &silence}) {
            for (std::span<const float> rest = *part; !rest.empty();
                 rest = rest.subspan(std::min(length, rest.size()))) {
                session_->process(rest.first(std::min(length, rest.size())));
            }
        }
        results << deliveries_.lines;
    }
    EXPECT_THAT(results, testing::Each(QStringList{command}));
}

} // namespace
} // namespace brivandel
