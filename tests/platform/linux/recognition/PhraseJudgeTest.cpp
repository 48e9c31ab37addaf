#include "platform/linux/recognition/PhraseJudge.h"

#include "platform/linux/recognition/SyntheticSpeech.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class PhraseJudgeTest : public testing::Test {
protected:
    void SetUp() override {
        judge_ = load(PhraseJudge::usualResonances);
        ASSERT_TRUE(judge_);
    }

    [[nodiscard]] static std::unique_ptr<PhraseJudge> load(const PhraseJudge::Resonances& resonances) {
        const ModelFiles files = ModelFiles::locate();
        static const auto vocabulary = CompiledVocabulary::compile(
            {.wakePhrase = QStringLiteral("hey logic"),
             .wakePhraseRequired = true,
             .phrases =
                 QStringLiteral("click on|click off|start recording|stop recording|undo|loop this section|"
                                "fast forward|save project|go to start")
                     .split(u'|'),
             .barPhrases = {QStringLiteral("go to bar")}},
            files.dictionary);
        auto judge = PhraseJudge::load(files, resonances);
        return judge && judge->setVocabulary(vocabulary) ? std::move(judge) : nullptr;
    }

    /// After the wake phrase. Played faster than it was spoken, a voice is that of a smaller speaker.
    [[nodiscard]] static std::vector<std::int16_t> say(const QString& voice, const QString& command,
                                                       double faster = 1) {
        static SyntheticSpeech speech;
        const Sound sound = speech.speak(voice, {QStringLiteral("hey logic, ") + command}, 0ms,
                                         static_cast<int>(recognitionRateHz / faster), 1);
        std::vector<std::int16_t> samples;
        for (const float sample : sound.samples) {
            samples.push_back(static_cast<std::int16_t>(sample * 32767));
        }
        return samples;
    }
    [[nodiscard]] static PhraseJudge::Question about(std::span<const std::int16_t> sound) {
        return {.sound = sound, .hasWakePhrase = true};
    }
    /// Empty when it carries nothing out.
    [[nodiscard]] static QString commandIn(PhraseJudge& judge, std::span<const std::int16_t> sound) {
        const Conclusion conclusion = judge.judge(about(sound));
        return conclusion.reading && conclusion.reading->hasCommand ? conclusion.reading->text : QString();
    }

    std::unique_ptr<PhraseJudge> judge_;
};

TEST_F(PhraseJudgeTest, SmallSpeaker_IsUnderstoodMoreOftenThanByOneSizeAlone) {
    const auto oneSize = load({1, 1, 1});
    ASSERT_TRUE(oneSize);
    int understood = 0;
    int byOneSize = 0;
    for (const QString& command : QStringLiteral("undo|fast forward|save project").split(u'|')) {
        for (const double faster : {1.25, 1.35}) {
            const std::vector<std::int16_t> sound = say(QStringLiteral("kal16"), command, faster);
            const QString wanted = QStringLiteral("hey logic ") + command;
            const QString heard = commandIn(*judge_, sound);
            EXPECT_TRUE(heard.isEmpty() || heard == wanted) << qPrintable(heard);
            understood += heard == wanted ? 1 : 0;
            byOneSize += commandIn(*oneSize, sound) == wanted ? 1 : 0;
        }
    }
    EXPECT_GT(understood, byOneSize);
}

TEST_F(PhraseJudgeTest, SoundAlikes_AreToldApart) {
    for (const QString& voice : {QStringLiteral("rms"), QStringLiteral("kal16")}) {
        const std::vector<std::int16_t> off = say(voice, QStringLiteral("click off"));
        const QStringList on = QStringLiteral("hey logic click on").split(u' ');
        EXPECT_FALSE(judge_->confirms(on, about(off)));
        EXPECT_EQ(commandIn(*judge_, off), QStringLiteral("hey logic click off"));
        // What was compared is forgotten.
        EXPECT_TRUE(judge_->confirms(on, about(say(voice, QStringLiteral("click on")))));
    }
}

TEST_F(PhraseJudgeTest, OrdinarySentence_IsNoCommandForAnySpeaker) {
    const std::vector<std::int16_t> sound =
        say(QStringLiteral("rms"), QStringLiteral("have you seen the weather in the mountains"));
    EXPECT_EQ(commandIn(*judge_, sound), QString());
}

} // namespace
} // namespace brivandel
