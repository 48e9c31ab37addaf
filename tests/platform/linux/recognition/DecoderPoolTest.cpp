#include "platform/linux/recognition/DecoderPool.h"

#include "platform/linux/recognition/Signals.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

RecognitionVocabulary vocabularyOf(const QStringList& phrases) {
    return {.wakePhrase = QStringLiteral("hey logic"),
            .wakePhraseRequired = true,
            .phrases = phrases,
            .barPhrases = {QStringLiteral("go to bar")}};
}

HeardSound noise() {
    const Samples samples = whiteNoise(-30, 1s);
    return {.asHeard = samples, .withoutNoise = samples};
}

class DecoderPoolTest : public testing::Test {
protected:
    std::shared_ptr<DecoderPool> pool_ = std::make_shared<DecoderPool>(ModelFiles::locate());
};

TEST_F(DecoderPoolTest, ReturnedDecoder_IsLentAgain) {
    const RecognitionVocabulary vocabulary = vocabularyOf({QStringLiteral("play")});
    auto first = pool_->lend(vocabulary);
    ASSERT_TRUE(first);
    const UtteranceDecoder* const address = first.get();
    first.reset();
    EXPECT_EQ(pool_->lend(vocabulary).get(), address);
}

TEST_F(DecoderPoolTest, TwoAtOnce_AreTwoDecoders) {
    const RecognitionVocabulary vocabulary = vocabularyOf({QStringLiteral("play")});
    const auto first = pool_->lend(vocabulary);
    const auto second = pool_->lend(vocabulary);
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
}

TEST_F(DecoderPoolTest, DecoderThatOutlivesThePool_IsStillWhole) {
    auto decoder = pool_->lend(vocabularyOf({QStringLiteral("play")}));
    pool_.reset();
    decoder->begin(Expecting::WakePhrase);
    decoder->process(noise());
    EXPECT_FALSE(decoder->conclude().reading);
}

TEST_F(DecoderPoolTest, NoiseAndNothing_AreNotUnderstood) {
    const auto decoder = pool_->lend(vocabularyOf({QStringLiteral("play")}));
    for (const Expecting expecting : {Expecting::WakePhrase, Expecting::Command}) {
        decoder->begin(expecting);
        EXPECT_FALSE(decoder->interim());
        EXPECT_FALSE(decoder->conclude().reading) << "an utterance without a sample";
        decoder->begin(expecting);
        decoder->process(noise());
        decoder->begin(expecting);
        decoder->process(noise());
        EXPECT_FALSE(decoder->interim());
        EXPECT_FALSE(decoder->conclude().reading);
    }
}

TEST_F(DecoderPoolTest, ThousandPhrases_AreTakenAndChanged) {
    QStringList phrases;
    for (int i = 0; i < 1000; ++i) {
        phrases << QStringLiteral("scene %1 zyxl%2 Überblick").arg(i).arg(i % 50);
    }
    for (int round = 0; round < 2; ++round) {
        phrases.removeFirst();
        const auto decoder = pool_->lend(vocabularyOf(phrases));
        ASSERT_TRUE(decoder);
        decoder->begin(Expecting::Command);
        decoder->process(noise());
        EXPECT_FALSE(decoder->conclude().reading);
    }
}

TEST_F(DecoderPoolTest, NoPhrasesAtAll_IsNoError) {
    EXPECT_TRUE(pool_->lend(RecognitionVocabulary()));
}

TEST_F(DecoderPoolTest, MissingModel_LendsNothing) {
    const auto pool =
        std::make_shared<DecoderPool>(ModelFiles{QStringLiteral("/nowhere"), QStringLiteral("/nowhere")});
    EXPECT_FALSE(pool->lend(RecognitionVocabulary()));
}

} // namespace
} // namespace brivandel
