#include "platform/linux/recognition/LiveSession.h"

#include "platform/linux/recognition/ScriptedDecoder.h"
#include "platform/linux/recognition/WakeUp.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const auto starved = QStringLiteral("! No sound arrives from the input.");

class LiveSessionTest : public testing::Test {
protected:
    LiveSessionTest()
        : session_(
              sound_, delivery_, RecognitionSession::Reporting::PartialResults,
              [this] {
                  now_ += decodingTakes_;
                  return RecognitionSession::Lease{decoder_};
              },
              now_) {}

    void append(double decibels, std::chrono::milliseconds time, int rateHz = 16000) {
        const std::vector<float> samples = noise_(decibels, time, rateHz);
        const float* const channel = samples.data();
        sound_->append(
            {static_cast<double>(rateHz), static_cast<std::uint32_t>(samples.size()), {&channel, 1}});
    }
    bool stepAfter(std::chrono::milliseconds time) {
        now_ += time;
        return session_.step([this] { return now_; });
    }

    Noise noise_;
    Deliveries deliveries_;
    std::shared_ptr<ScriptedDecoder> decoder_ = std::make_shared<ScriptedDecoder>();
    std::shared_ptr<SoundStream> sound_ = std::make_shared<SoundStream>(std::make_shared<WakeUp>());
    std::shared_ptr<Delivery> delivery_ = std::make_shared<Delivery>(deliveries_.handler());
    LiveSession::TimePoint now_{100s};
    /// Of the first frame of each utterance.
    std::chrono::milliseconds decodingTakes_{0};
    LiveSession session_;
};

TEST_F(LiveSessionTest, SoundThatNeverComes_IsAnErrorAfterOneSecond) {
    EXPECT_TRUE(stepAfter(999ms));
    EXPECT_THAT(deliveries_.lines, IsEmpty());
    EXPECT_FALSE(stepAfter(1ms));
    EXPECT_THAT(deliveries_.lines, ElementsAre(starved));
}

TEST_F(LiveSessionTest, SoundThatStops_IsOneErrorAfterOneSecond) {
    append(Noise::silence, 100ms);
    EXPECT_TRUE(stepAfter(900ms));
    EXPECT_EQ(session_.deadline(), now_ + 1s);
    EXPECT_TRUE(stepAfter(999ms));
    EXPECT_FALSE(stepAfter(1ms));
    EXPECT_FALSE(stepAfter(5s));
    EXPECT_THAT(deliveries_.lines, ElementsAre(starved));
}

TEST_F(LiveSessionTest, SoundThatKeepsComing_IsNoError) {
    for (int i = 0; i < 50; ++i) {
        append(Noise::silence, 100ms);
        ASSERT_TRUE(stepAfter(900ms));
    }
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(LiveSessionTest, DecodingThatTakesLong_IsNotTakenForMissingSound) {
    decodingTakes_ = 1500ms;
    append(Noise::speech, 700ms);
    EXPECT_TRUE(stepAfter(700ms));
    // All that came had been read a moment ago, and no more is there yet.
    EXPECT_TRUE(stepAfter(1ms));
    EXPECT_THAT(deliveries_.lines, IsEmpty());
    EXPECT_EQ(session_.deadline(), now_ + 999ms);
    EXPECT_FALSE(stepAfter(999ms));
    EXPECT_THAT(deliveries_.lines, ElementsAre(starved));
}

TEST_F(LiveSessionTest, EndOfSound_DeliversWhatWasHeardAsFinal) {
    decoder_->interimAnswer = Reading{.text = QStringLiteral("undo"), .isWhole = true};
    append(Noise::speech, 700ms);
    append(Noise::silence, 200ms);
    sound_->end();
    EXPECT_FALSE(stepAfter(10ms));
    EXPECT_THAT(deliveries_.lines, ElementsAre(QStringLiteral("undo"), QStringLiteral("undo.")));
}

TEST_F(LiveSessionTest, EndOfSoundWithNothingHeard_DeliversNothing) {
    append(Noise::silence, 500ms);
    sound_->end();
    EXPECT_FALSE(stepAfter(10ms));
    EXPECT_FALSE(stepAfter(5s));
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(LiveSessionTest, AbandonedSound_EndsTheSessionSilently) {
    decoder_->interimAnswer = Reading{.text = QStringLiteral("undo"), .isWhole = true};
    append(Noise::speech, 700ms);
    append(Noise::silence, 500ms);
    sound_->abandon();
    EXPECT_FALSE(stepAfter(2s));
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(LiveSessionTest, SoundAbandonedAfterItsEnd_IsStillHeard) {
    decoder_->interimAnswer = Reading{.text = QStringLiteral("undo"), .isWhole = true};
    append(Noise::speech, 700ms);
    append(Noise::silence, 200ms);
    sound_->end();
    sound_->abandon();
    EXPECT_FALSE(stepAfter(10ms));
    EXPECT_THAT(deliveries_.lines, ElementsAre(QStringLiteral("undo"), QStringLiteral("undo.")));
}

TEST_F(LiveSessionTest, ClosedDelivery_EndsTheSessionSilently) {
    decoder_->interimAnswer = Reading{.text = QStringLiteral("undo"), .isWhole = true};
    append(Noise::speech, 700ms);
    append(Noise::silence, 500ms);
    delivery_->close();
    EXPECT_FALSE(stepAfter(2s));
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

TEST_F(LiveSessionTest, DeliveryClosedByItsHandler_DeliversNothingMore) {
    QStringList lines;
    std::shared_ptr<Delivery> delivery;
    delivery = std::make_shared<Delivery>([&](const auto& result, const auto&) {
        lines << result->formattedString;
        delivery->close();
    });
    LiveSession session(
        sound_, delivery, RecognitionSession::Reporting::PartialResults,
        [this] { return RecognitionSession::Lease{decoder_}; }, now_);
    decoder_->interimAnswer = Reading{.text = QStringLiteral("undo"), .isWhole = true};
    append(Noise::speech, 700ms);
    append(Noise::silence, 500ms);
    append(Noise::speech, 700ms);
    append(Noise::silence, 500ms);
    EXPECT_FALSE(session.step([this] { return now_; }));
    EXPECT_THAT(lines, ElementsAre(QStringLiteral("undo")));
}

TEST_F(LiveSessionTest, InputThatChangesItsRate_IsOneError) {
    append(Noise::silence, 100ms, 48000);
    append(Noise::silence, 100ms, 44100);
    EXPECT_FALSE(stepAfter(10ms));
    EXPECT_THAT(deliveries_.lines,
                ElementsAre(QStringLiteral("! The input changed from 48000 to 44100 samples a second.")));
}

TEST_F(LiveSessionTest, RateThatCannotBeRecognised_IsOneError) {
    append(Noise::silence, 100ms, 4000);
    EXPECT_FALSE(stepAfter(10ms));
    EXPECT_THAT(deliveries_.lines,
                ElementsAre(QStringLiteral(
                    "! Sound at 4000 samples a second cannot be recognised; 8000 to 192000 can.")));
}

TEST_F(LiveSessionTest, MoreSoundThanThereIsRoomFor_ForgetsTheUtterance) {
    decoder_->conclusion.reading = Reading{.text = QStringLiteral("undo"), .isWhole = true};
    append(Noise::speech, 1300ms, 192000);
    append(Noise::speech, 200ms, 192000);
    EXPECT_TRUE(stepAfter(10ms));
    append(Noise::silence, 1s, 192000);
    EXPECT_TRUE(stepAfter(10ms));
    EXPECT_THAT(deliveries_.lines, IsEmpty());
}

} // namespace
} // namespace brivandel
