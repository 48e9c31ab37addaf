#include "platform/linux/recognition/InlineSpeechRecognition.h"
#include "platform/linux/recognition/OfflineSpeechRecognition.h"
#include "platform/linux/recognition/SyntheticSpeech.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <numbers>
#include <random>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

const auto wakePhrase = QStringLiteral("hey logic");

QStringList lines(QStringView text) {
    return text.toString().split(u'|');
}

const QStringList& canonicalPhrases() {
    static const QStringList phrases = lines(
        u"start recording|stop recording|play|stop|pause|go to start|fast forward|delete last take|undo|redo|"
        u"save project|save as|enable loop|disable loop|loop this section|count me in|play that back|"
        u"stop playback|click on|click off");
    return phrases;
}

RecognitionVocabulary vocabulary() {
    return {
        .wakePhrase = wakePhrase,
        .wakePhraseRequired = true,
        .phrases =
            canonicalPhrases() +
            lines(u"record|recording|go to beginning|rewind|skip ahead|delete take|delete that|save|loop on|"
                  u"loop off|loop this|count in|play it back|playback|metronome on|metronome off|"
                  u"enable trigger word|trigger word on|disable trigger word|trigger word off"),
        .barPhrases = lines(u"go to bar|play from bar|play at bar")};
}

/// What a session delivered, in order; the last is final if anything was delivered.
struct Heard {
    QStringList partials;
    QString final;
};

/// Adds notes of a plucked string at 16 kHz, one every 0.4 seconds, some 12 dB below a voice.
void addPlucking(std::vector<float>& samples) {
    constexpr std::size_t distance = 6400;
    constexpr std::array<float, 5> pitchesHz = {220, 277.2F, 329.6F, 246.9F, 415.3F};
    for (std::size_t begin = 0; begin < samples.size(); begin += distance) {
        const float pitch = pitchesHz[begin / distance % pitchesHz.size()];
        for (std::size_t at = begin; at < samples.size() && at < begin + 3 * distance; ++at) {
            const float seconds = static_cast<float>(at - begin) / 16000;
            for (int partial = 1; partial <= 8; ++partial) {
                const auto order = static_cast<float>(partial);
                samples[at] += 0.04F / order * std::exp(-2 * order * seconds) *
                               std::sin(2 * std::numbers::pi_v<float> * pitch * order * seconds);
            }
        }
    }
}

/// Adds beats of two drums at 16 kHz, one every half second: a low and a bright one in turn.
void addDrumming(std::vector<float>& samples) {
    constexpr std::size_t distance = 8000;
    std::minstd_rand random(5);
    std::normal_distribution<float> rattle(0, 1);
    for (std::size_t at = 0; at < samples.size(); ++at) {
        const float seconds = static_cast<float>(at % distance) / 16000;
        const bool isLow = at / distance % 2 == 0;
        const float skin = std::sin(2 * std::numbers::pi_v<float> * (isLow ? 60.0F : 180.0F) * seconds);
        samples[at] += 0.1F * std::exp(-(isLow ? 10.0F : 25.0F) * seconds) *
                       (skin + (isLow ? 0.05F : 0.8F) * rattle(random));
    }
}

/// Adds white noise, 38 dB below full scale.
void addHiss(std::vector<float>& samples) {
    std::minstd_rand random(3);
    std::normal_distribution<float> hiss(0, 0.012F);
    for (float& sample : samples) {
        sample += hiss(random);
    }
}

/// One recogniser and one synthesiser for all tests of this program.
class SpeechTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        speech_ = std::make_unique<SyntheticSpeech>();
        recognition_ = std::make_unique<InlineSpeechRecognition>();
    }
    static void TearDownTestSuite() {
        recognition_.reset();
        speech_.reset();
    }

    /// In blocks of 1024 frames, as they are captured.
    static void append(SpeechRecognitionRequest& request, const Sound& sound) {
        for (std::size_t at = 0; at < sound.samples.size(); at += 1024) {
            const std::vector<const float*> channels(sound.channelCount, sound.samples.data() + at);
            const std::size_t count = std::min<std::size_t>(1024, sound.samples.size() - at);
            request.append({sound.sampleRateHz, static_cast<std::uint32_t>(count), channels});
        }
    }

    static Heard listen(const Sound& sound, const RecognitionVocabulary& words = vocabulary()) {
        EXPECT_FALSE(sound.samples.empty()) << "the synthesiser said nothing";
        const auto recognizer = recognition_->makeRecognizer(QStringLiteral("en-US"));
        recognizer->setVocabulary(words);
        Heard heard;
        const auto request = recognition_->makeRequest();
        const auto task = recognizer->startTask(request, [&heard](const auto& result, const auto& error) {
            EXPECT_FALSE(error) << qPrintable(error.value_or(QString()));
            if (result && result->isFinal) {
                heard.final = result->formattedString;
            } else if (result) {
                heard.partials << result->formattedString;
            }
        });
        append(*request, sound);
        request->endAudio();
        return heard;
    }

    static Heard listenTo(const QString& voice, const QStringList& parts,
                          const RecognitionVocabulary& words = vocabulary()) {
        return listen(speech_->speak(voice, parts, 2s, 16000, 1), words);
    }

    static void expectCommandsToBeHeardWith(void (*addOther)(std::vector<float>&)) {
        for (const QString& phrase : lines(u"start recording|go to start|save project|loop this section")) {
            const QString said = wakePhrase + QStringLiteral(", ") + phrase;
            Sound sound = speech_->speak(QStringLiteral("rms"), {said}, 2s, 16000, 1);
            addOther(sound.samples);
            EXPECT_EQ(listen(sound).final, wakePhrase + u' ' + phrase);
        }
    }

    /// The longest trigger in the command part of a transcript, which is what a transcript is acted upon for.
    static QString triggerIn(const QString& transcript) {
        const QString rest = transcript.mid(transcript.lastIndexOf(wakePhrase) + wakePhrase.size());
        QString longest;
        for (const QString& phrase : vocabulary().phrases) {
            if (rest.contains(phrase) && phrase.size() > longest.size()) {
                longest = phrase;
            }
        }
        return longest;
    }

    static inline std::unique_ptr<SyntheticSpeech> speech_;
    static inline std::unique_ptr<InlineSpeechRecognition> recognition_;
};

struct SpokenFormat {
    const char* voice;
    int rateHz;
    std::uint32_t channelCount;
};

void PrintTo(const SpokenFormat& format, std::ostream* out) {
    *out << format.voice << ", " << format.rateHz << " Hz, " << format.channelCount << " channels";
}

class SpokenFormatTest : public SpeechTest, public testing::WithParamInterface<SpokenFormat> {};

TEST_P(SpokenFormatTest, CanonicalPhrases_AreRecognisedWithoutAWrongPartialResult) {
    const auto [voice, rateHz, channelCount] = GetParam();
    for (const QString& phrase : canonicalPhrases()) {
        const QString wanted = wakePhrase + u' ' + phrase;
        for (const QStringList& parts :
             {QStringList{wakePhrase + QStringLiteral(", ") + phrase}, QStringList{wakePhrase, phrase}}) {
            SCOPED_TRACE(parts.join(QStringLiteral(" ... ")).toStdString());
            const Heard heard =
                listen(speech_->speak(QString::fromLatin1(voice), parts, 2s, rateHz, channelCount));
            EXPECT_EQ(heard.final, wanted);
            for (const QString& partial : heard.partials) {
                const QString trigger = triggerIn(partial);
                EXPECT_TRUE(trigger.isEmpty() || trigger == phrase) << qPrintable(partial);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(VoicesAndFormats, SpokenFormatTest,
                         testing::Values(SpokenFormat{"slt", 16000, 1}, SpokenFormat{"slt", 16000, 2},
                                         SpokenFormat{"slt", 44100, 1}, SpokenFormat{"slt", 44100, 2},
                                         SpokenFormat{"slt", 48000, 1}, SpokenFormat{"slt", 48000, 2},
                                         SpokenFormat{"rms", 16000, 1}, SpokenFormat{"rms", 16000, 2},
                                         SpokenFormat{"rms", 44100, 1}, SpokenFormat{"rms", 44100, 2},
                                         SpokenFormat{"rms", 48000, 1}, SpokenFormat{"rms", 48000, 2}));

TEST_F(SpeechTest, BarNumbers_AreWrittenInDigits) {
    const std::array<std::pair<QString, QString>, 5> numbers = {{
        {QStringLiteral("go to bar twelve"), QStringLiteral("go to bar 12")},
        {QStringLiteral("go to bar twenty five"), QStringLiteral("go to bar 25")},
        {QStringLiteral("play from bar seven"), QStringLiteral("play from bar 7")},
        {QStringLiteral("go to bar sixty four"), QStringLiteral("go to bar 64")},
        {QStringLiteral("play from bar one hundred and twelve"), QStringLiteral("play from bar 112")},
    }};
    for (const auto& [said, written] : numbers) {
        EXPECT_EQ(listenTo(QStringLiteral("rms"), {wakePhrase + QStringLiteral(", ") + said}).final,
                  wakePhrase + u' ' + written);
    }
}

TEST_F(SpeechTest, ThoughtBeforeTheBarNumber_IsWaitedFor) {
    for (const QString& voice : {QStringLiteral("slt"), QStringLiteral("rms")}) {
        EXPECT_EQ(listenTo(voice, {QStringLiteral("hey logic, go to bar"), QStringLiteral("twelve")}).final,
                  QStringLiteral("hey logic go to bar 12"))
            << qPrintable(voice);
    }
}

TEST_F(SpeechTest, MusicBeforeAndAfterACommand_LeavesItHeard) {
    expectCommandsToBeHeardWith(addPlucking);
}

TEST_F(SpeechTest, SteadyNoise_LeavesACommandHeard) {
    expectCommandsToBeHeardWith(addHiss);
}

TEST_F(SpeechTest, Music_IsNoCommandWhereNoWakePhraseIsNeeded) {
    RecognitionVocabulary words = vocabulary();
    words.wakePhraseRequired = false;
    Sound sound{.sampleRateHz = 16000, .samples = std::vector<float>(std::size_t{10} * 16000)};
    addDrumming(sound.samples);
    addPlucking(sound.samples);
    EXPECT_EQ(listen(sound, words).final, QString());
}

TEST_F(SpeechTest, OtherCommandAfterTheWakePhrase_IsPassedOverWithAReason) {
    QStringList reasons;
    const auto recognizer = recognition_->makeRecognizer(QStringLiteral("en-US"));
    recognizer->setVocabulary(vocabulary());
    recognizer->setVerdictHandler([&reasons](const UtteranceVerdict& verdict) {
        EXPECT_FALSE(verdict.isAccepted && verdict.text != wakePhrase) << qPrintable(verdict.text);
        reasons << verdict.reason;
    });
    const auto request = recognition_->makeRequest();
    const auto task = recognizer->startTask(request, [](const auto&, const auto&) {});
    append(*request,
           speech_->speak(QStringLiteral("slt"), {QStringLiteral("hey logic, start the car")}, 0s, 16000, 1));
    request->endAudio();
    EXPECT_THAT(reasons, testing::Contains(testing::Ne(QString())));
}

TEST_F(SpeechTest, OrdinarySentences_ActivateNothing) {
    const QStringList sentences =
        lines(u"I think we should try the chorus again|that was a good take but the bridge was a little slow|"
              u"can you turn the guitar up in my headphones|what time are we meeting tomorrow morning|"
              u"the logic of this argument is not clear to me|hey that is not logical at all|"
              u"I love the sound of that old piano|let me play it one more time from the top|"
              u"we could record the vocals on Friday|stop it you are making me laugh|"
              u"there is no logic in what he says|please save some of the cake for me|"
              u"she said she would pause for a moment|hey guys are you ready to go|"
              u"we use logic to mix everything in here|go to the store and buy some milk|"
              u"I will undo the damage in a minute|logic pro is what I learned on at school|"
              u"so in logic, save project|I said hey magic, record|he said logic, stop|"
              u"the magic is in the way they play together|are we going to start recording now or later");
    QStringList activated;
    for (const QString& voice : {QStringLiteral("slt"), QStringLiteral("rms")}) {
        for (const QString& sentence : sentences) {
            if (const Heard heard = listenTo(voice, {sentence}); !heard.final.isEmpty()) {
                activated << voice + QStringLiteral(": ") + sentence + QStringLiteral(" -> ") + heard.final;
            }
        }
    }
    // None was measured; one in forty is the margin for another version of the engine or the synthesiser.
    EXPECT_LE(activated.size(), 1) << qPrintable(activated.join(u'\n'));
}

TEST_F(SpeechTest, CommandInASentence_IsNoCommand) {
    for (const QString& voice : {QStringLiteral("slt"), QStringLiteral("rms")}) {
        const Heard heard = listenTo(voice, {QStringLiteral("hey logic, save project was what I said")});
        EXPECT_EQ(triggerIn(heard.final), QString()) << qPrintable(voice);
    }
}

TEST_F(SpeechTest, TalkAfterTheWakePhrase_IsNoCommand) {
    for (const QString& talk : {QStringLiteral("let me see what we have got here"),
                                QStringLiteral("I am not sure which one he wants")}) {
        EXPECT_EQ(triggerIn(listenTo(QStringLiteral("slt"), {wakePhrase, talk}).final), QString())
            << qPrintable(talk);
    }
}

TEST_F(SpeechTest, WakePhraseNotRequired_CommandIsRecognisedWithoutIt) {
    RecognitionVocabulary words = vocabulary();
    words.wakePhraseRequired = false;
    EXPECT_EQ(listenTo(QStringLiteral("rms"), {QStringLiteral("start recording")}, words).final,
              QStringLiteral("start recording"));
    EXPECT_EQ(listenTo(QStringLiteral("rms"), {QStringLiteral("start recording")}).final, QString());
}

TEST_F(SpeechTest, UnknownWords_AreRecognisedByTheRulesOfReading) {
    RecognitionVocabulary words = vocabulary();
    words.phrases << QStringLiteral("Quantize it!") << QStringLiteral("open sidechain");
    EXPECT_EQ(listenTo(QStringLiteral("slt"), {QStringLiteral("hey logic, quantize it")}, words).final,
              QStringLiteral("hey logic quantize it!"));
    EXPECT_EQ(listenTo(QStringLiteral("rms"), {QStringLiteral("hey logic, open side chain")}, words).final,
              QStringLiteral("hey logic open sidechain"));
}

TEST_F(SpeechTest, VocabularyChangedInARunningSession_IsInForceFromTheNextUtterance) {
    const auto recognizer = recognition_->makeRecognizer(QStringLiteral("en-US"));
    recognizer->setVocabulary(vocabulary());
    QString last;
    const auto request = recognition_->makeRequest();
    const auto task = recognizer->startTask(request, [&last](const auto& result, const auto&) {
        last = result ? result->formattedString : last;
    });
    const Sound sound =
        speech_->speak(QStringLiteral("slt"), {QStringLiteral("okay computer, play")}, 0s, 16000, 1);
    append(*request, sound);
    EXPECT_EQ(last, QString());
    RecognitionVocabulary other = vocabulary();
    other.wakePhrase = QStringLiteral("okay computer");
    recognizer->setVocabulary(other);
    append(*request, sound);
    EXPECT_EQ(last, QStringLiteral("okay computer play"));
}

TEST_F(SpeechTest, SameSoundTwice_GivesTheSameResults) {
    const Sound sound =
        speech_->speak(QStringLiteral("slt"), {wakePhrase, QStringLiteral("undo")}, 1s, 48000, 2);
    const Heard first = listen(sound);
    const Heard second = listen(sound);
    EXPECT_EQ(first.partials, second.partials);
    EXPECT_EQ(first.final, second.final);
}

TEST_F(SpeechTest, LiveRecognition_DeliversWhatWasSaidBeforeTheEnd) {
    OfflineSpeechRecognition live;
    const auto recognizer = live.makeRecognizer(QStringLiteral("en-US"));
    recognizer->setVocabulary(vocabulary());
    std::mutex mutex;
    std::condition_variable changed;
    QStringList partials;
    QString final;
    const auto request = live.makeRequest();
    const auto task = recognizer->startTask(request, [&](const auto& result, const auto& error) {
        const std::lock_guard lock(mutex);
        EXPECT_FALSE(error);
        if (result) {
            (result->isFinal ? final : partials.emplaceBack()) = result->formattedString;
        }
        changed.notify_all();
    });
    append(*request, speech_->speak(QStringLiteral("rms"), {QStringLiteral("hey logic, stop recording")}, 0s,
                                    48000, 2));
    std::unique_lock lock(mutex);
    EXPECT_TRUE(changed.wait_for(lock, 30s, [&] { return !partials.isEmpty(); }));
    lock.unlock();
    task->finish();
    lock.lock();
    EXPECT_TRUE(changed.wait_for(lock, 30s, [&] { return !final.isEmpty(); }));
    EXPECT_EQ(partials, QStringList{QStringLiteral("hey logic stop recording")});
    EXPECT_EQ(final, QStringLiteral("hey logic stop recording"));
}

} // namespace
} // namespace brivandel
