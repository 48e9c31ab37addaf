#include "platform/linux/recognition/Evidence.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

HeardSegment segment(const char16_t* word, int first, int count, double perFrame) {
    return {QString::fromUtf16(word), first, count, perFrame * count};
}

TEST(Evidence, PhraseThatFitsAsWellAsAnyWords_IsProved) {
    const std::vector heard = {segment(u"hey", 0, 20, -30), segment(u"logic", 20, 40, -35),
                               segment(u"play", 60, 40, -40)};
    const Evidence evidence = Evidence::weigh(heard, heard, {.wakeWordCount = 2});
    EXPECT_EQ(evidence.ofAll, 0);
    EXPECT_TRUE(evidence.provesWakePhrase());
    EXPECT_TRUE(evidence.provesCommand());
}

TEST(Evidence, OneWrongWordOfTheWakePhrase_DisprovesIt) {
    const std::vector phrase = {segment(u"hey", 0, 20, -90), segment(u"logic", 20, 40, -35),
                                segment(u"play", 60, 40, -40)};
    const std::vector reference = {segment(u"the", 0, 20, -30), segment(u"logic", 20, 40, -35),
                                   segment(u"play", 60, 40, -40)};
    const Evidence evidence = Evidence::weigh(phrase, reference, {.wakeWordCount = 2});
    EXPECT_EQ(evidence.ofWakePhrase, -60);
    EXPECT_FALSE(evidence.provesWakePhrase());
    EXPECT_EQ(evidence.ofCommand, 0);
}

TEST(Evidence, WrongCommand_LeavesTheWakePhraseProved) {
    const std::vector phrase = {segment(u"hey", 0, 20, -30), segment(u"logic", 20, 40, -35),
                                segment(u"play", 60, 40, -90)};
    const std::vector reference = {segment(u"hey", 0, 20, -30), segment(u"logic", 20, 40, -35),
                                   segment(u"nice", 60, 20, -30), segment(u"day", 80, 20, -40)};
    const Evidence evidence = Evidence::weigh(phrase, reference, {.wakeWordCount = 2});
    EXPECT_TRUE(evidence.provesWakePhrase());
    EXPECT_EQ(evidence.ofCommand, -55);
    EXPECT_FALSE(evidence.provesCommand());
}

TEST(Evidence, PausesCountInTheWholeOnly) {
    const std::vector phrase = {segment(u"", 0, 50, -80), segment(u"play", 50, 50, -30)};
    const std::vector reference = {segment(u"talk", 0, 50, -30), segment(u"play", 50, 50, -30)};
    const Evidence evidence = Evidence::weigh(phrase, reference, {});
    EXPECT_EQ(evidence.ofCommand, 0);
    EXPECT_EQ(evidence.ofAll, -25);
    EXPECT_FALSE(evidence.provesCommand()) << "half of the utterance was something else";
}

TEST(Evidence, SpeechPassedOverAsNoise_DisprovesTheCommand) {
    const std::vector phrase = {segment(u"stop", 0, 30, -30), segment(u"", 30, 70, -30)};
    const std::vector reference = {segment(u"topic", 0, 40, -30), segment(u"we", 40, 30, -30),
                                   segment(u"learned", 70, 30, -30)};
    const Evidence evidence = Evidence::weigh(phrase, reference, {});
    EXPECT_DOUBLE_EQ(evidence.coverage, 0.3);
    EXPECT_FALSE(evidence.provesCommand());
}

TEST(Evidence, FewLongWordsForManyShortOnes_DisproveTheCommand) {
    const std::vector phrase = {segment(u"recording", 0, 80, -30)};
    std::vector reference = {segment(u"we", 0, 20, -30), segment(u"we", 20, 20, -30),
                             segment(u"we", 40, 20, -30)};
    EXPECT_TRUE(Evidence::weigh(phrase, reference, {}).provesCommand());
    reference.push_back(segment(u"are", 60, 20, -30));
    EXPECT_FALSE(Evidence::weigh(phrase, reference, {}).provesCommand());
}

TEST(Evidence, WordsThatTheReferenceHearsToo_AreProvedByLess) {
    const std::vector phrase = {segment(u"hey", 0, 20, -40), segment(u"logic", 20, 40, -40),
                                segment(u"play", 60, 40, -60)};
    std::vector reference = {segment(u"hey", 0, 20, -40), segment(u"logic", 20, 40, -40),
                             segment(u"play", 60, 40, -43)};
    EXPECT_TRUE(Evidence::weigh(phrase, reference, {.wakeWordCount = 2}).provesCommand());
    reference.back().word = QStringLiteral("clay");
    const Evidence disputed = Evidence::weigh(phrase, reference, {.wakeWordCount = 2});
    EXPECT_TRUE(disputed.provesWakePhrase());
    EXPECT_FALSE(disputed.provesCommand());
    EXPECT_EQ(disputed.weakest().what, QStringLiteral("the command fits badly"));
    EXPECT_DOUBLE_EQ(disputed.weakest().margin, -4);
}

TEST(Evidence, WordsBeforeTheWakePhrase_AreNoDispute) {
    const std::vector phrase = {segment(u"hey", 20, 20, -40), segment(u"logic", 40, 40, -40)};
    const std::vector reference = {segment(u"so", 0, 20, -40), segment(u"hey", 20, 20, -40),
                                   segment(u"logic", 40, 40, -40)};
    EXPECT_EQ(Evidence::weigh(phrase, reference, {.wakeWordCount = 2}).agreement, Agreement::Whole);
}

TEST(Evidence, MusicAfterThePhrase_IsADisputeOnlyWhereMoreWordsCouldFollow) {
    const std::vector phrase = {segment(u"maestro", 0, 40, -40), segment(u"undo", 40, 40, -40),
                                segment(u"", 80, 20, -60)};
    const std::vector reference = {segment(u"maestro", 0, 40, -40), segment(u"undo", 40, 40, -40),
                                   segment(u"who", 80, 20, -40)};
    EXPECT_EQ(Evidence::weigh(phrase, reference, {.wakeWordCount = 1}).agreement, Agreement::Whole);
    EXPECT_EQ(Evidence::weigh(phrase, reference, {.wakeWordCount = 1, .mayGoOn = true}).agreement,
              Agreement::None);
}

TEST(Evidence, WordAfterACommandAlone_IsADispute) {
    const std::vector phrase = {segment(u"undo", 0, 40, -40), segment(u"", 40, 20, -60)};
    const std::vector reference = {segment(u"undo", 0, 40, -40), segment(u"it", 40, 20, -40)};
    EXPECT_EQ(Evidence::weigh(phrase, reference, {}).agreement, Agreement::None);
}

TEST(Evidence, SwallowedFirstWordBeforeACommandThatIsAgreed_IsForgiven) {
    const std::vector phrase = {segment(u"hey", 0, 10, -80), segment(u"logic", 10, 40, -40),
                                segment(u"undo", 50, 40, -40)};
    const std::vector reference = {segment(u"the", 0, 10, -40), segment(u"logic", 10, 40, -40),
                                   segment(u"undo", 50, 40, -40)};
    constexpr Evidence::Shape atTheBeginning = {.wakeWordCount = 2, .mayLackFirstWord = true};
    const Evidence evidence = Evidence::weigh(phrase, reference, atTheBeginning);
    EXPECT_EQ(evidence.agreement, Agreement::ButForTheFirstWord);
    EXPECT_TRUE(evidence.provesCommand());
    EXPECT_FALSE(evidence.provesWakePhrase()) << "without the command it would be none";
    EXPECT_FALSE(Evidence::weigh(phrase, reference, {.wakeWordCount = 2}).provesCommand());

    const auto isForgiven = [&](std::vector<HeardSegment> other) {
        return Evidence::weigh(phrase, other, atTheBeginning).agreement != Agreement::None;
    };
    std::vector<HeardSegment> longer = reference;
    longer.insert(longer.begin(), 2, segment(u"in", 0, 5, -40));
    EXPECT_FALSE(isForgiven(longer));
    std::vector<HeardSegment> other = reference;
    other.back().word = QStringLiteral("and");
    EXPECT_FALSE(isForgiven(other));
    other = reference;
    other[1].word = QStringLiteral("magic");
    EXPECT_FALSE(isForgiven(other));
}

TEST(Evidence, NoWordsInTheReference_DisproveTheCommand) {
    const std::vector drum = {segment(u"save", 0, 70, -35)};
    const std::vector silence = {segment(u"", 0, 70, -30)};
    EXPECT_FALSE(Evidence::weigh(drum, silence, {}).provesCommand());
}

TEST(Evidence, SoundAlikeThatFitsBetter_DisprovesTheCommandAndNotTheWakePhrase) {
    const std::vector on = {segment(u"hey", 0, 20, -30), segment(u"logic", 20, 40, -30),
                            segment(u"click", 60, 20, -30), segment(u"on", 80, 20, -30)};
    const std::vector off = {segment(u"hey", 0, 20, -30), segment(u"logic", 20, 40, -30),
                             segment(u"click", 60, 25, -30), segment(u"off", 85, 15, -26)};
    Evidence evidence = Evidence::weigh(on, on, {.wakeWordCount = 2});
    ASSERT_TRUE(evidence.provesCommand());
    evidence.distinction = Evidence::distinguish(on, off);
    EXPECT_EQ(evidence.distinction, -3) << "60 less for the 20 frames of one word";
    EXPECT_FALSE(evidence.isDistinct());
    EXPECT_FALSE(evidence.provesCommand());
    EXPECT_TRUE(evidence.provesWakePhrase());
    EXPECT_EQ(evidence.weakest().what, QStringLiteral("it sounds like another command"));
}

TEST(Evidence, SoundThatFitsOneOfTwoBetter_ProvesThatOne) {
    const std::vector on = {segment(u"click", 60, 20, -30), segment(u"on", 80, 20, -30)};
    const std::vector off = {segment(u"click", 60, 20, -30), segment(u"off", 80, 20, -50)};
    EXPECT_TRUE(Evidence{.distinction = Evidence::distinguish(on, off)}.isDistinct());
    EXPECT_FALSE(Evidence{.distinction = Evidence::distinguish(off, on)}.isDistinct());
}

TEST(Evidence, SoundThatFitsBothAlike_ProvesNeither) {
    const std::vector on = {segment(u"click", 60, 20, -30), segment(u"on", 80, 20, -30)};
    const std::vector off = {segment(u"click", 60, 20, -30), segment(u"off", 80, 20, -31)};
    EXPECT_FALSE(Evidence{.distinction = Evidence::distinguish(on, off)}.isDistinct());
    EXPECT_FALSE(Evidence{.distinction = Evidence::distinguish(off, on)}.isDistinct());
}

TEST(Evidence, PhraseThatIsNotHeardToItsEnd_SaysNothing) {
    const std::vector on = {segment(u"click", 60, 20, -30), segment(u"on", 80, 20, -30)};
    EXPECT_EQ(Evidence::distinguish(on, {}), 0);
    EXPECT_EQ(Evidence::distinguish({}, on), 0);
    EXPECT_EQ(Evidence::distinguish({}, {}), 0);
}

TEST(Evidence, SoundAlikeThatFitsNotAtAll_IsNoMoreThanClear) {
    const std::vector on = {segment(u"click", 60, 20, -30), segment(u"on", 80, 20, -30)};
    const std::vector off = {segment(u"click", 60, 20, -30), segment(u"off", 80, 20, -300)};
    EXPECT_EQ(Evidence::distinguish(on, off), 10);
    EXPECT_EQ(Evidence::distinguish(off, on), -10);
}

TEST(Evidence, Distinction_IsAskedForInTheMeasureThatIsWrittenDown) {
    EXPECT_TRUE(Evidence{.distinction = Evidence::leastDistinction}.isDistinct());
    EXPECT_FALSE(Evidence{.distinction = Evidence::leastDistinction - 0.01}.isDistinct());
}

TEST(Evidence, CommandAloneThatPhonesFitBetter_IsHardlySpeech) {
    const std::vector phrase = {segment(u"", 0, 20, -20), segment(u"undo", 20, 40, -40)};
    const std::vector phones = {segment(u"", 0, 20, -20), segment(u"AH", 20, 15, -27),
                                segment(u"N", 35, 25, -27)};
    Evidence evidence = Evidence::weigh(phrase, phrase, {});
    ASSERT_TRUE(evidence.provesCommand());
    EXPECT_TRUE(evidence.isSpeech()) << "not asked yet";
    evidence.amongPhones = Evidence::compareToPhones(phrase, phones);
    EXPECT_EQ(evidence.amongPhones, -13) << "of the words, which is less than of the whole";
    EXPECT_FALSE(evidence.isSpeech());
    EXPECT_FALSE(evidence.provesCommand());
    EXPECT_EQ(evidence.weakest().what, QStringLiteral("it is hardly speech"));
    EXPECT_EQ(Evidence::compareToPhones(phrase, phrase), 0);
    const std::vector murmur = {segment(u"M", 0, 20, -5), segment(u"undo", 20, 40, -40)};
    EXPECT_EQ(Evidence::compareToPhones(phrase, murmur), -5)
        << "of the whole, which is less than of the words";
    EXPECT_EQ(Evidence::compareToPhones({}, {}), 0);
}

TEST(Evidence, NothingHeard_CanBeWeighed) {
    const Evidence evidence = Evidence::weigh({}, {}, {});
    EXPECT_EQ(evidence.ofAll, 0);
    EXPECT_EQ(evidence.coverage, 0);
    EXPECT_FALSE(isOutOfQuestion({}));
}

TEST(Evidence, HopelessScore_IsOutOfQuestion) {
    EXPECT_TRUE(isOutOfQuestion(std::vector{segment(u"play", 0, 100, -90)}));
    EXPECT_FALSE(isOutOfQuestion(std::vector{segment(u"play", 0, 100, -45)}));
}

} // namespace
} // namespace brivandel
