#include "platform/linux/recognition/CompiledVocabulary.h"
#include "platform/linux/recognition/LanguageModel.h"
#include "platform/linux/recognition/ModelFiles.h"

#include <gmock/gmock.h>

namespace brivandel {
namespace {

class VocabularyTest : public testing::Test {
protected:
    VocabularyTest() {
        vocabulary_.wakePhrase = QStringLiteral("hey logic");
        vocabulary_.phrases = {QStringLiteral("play"), QStringLiteral("metronome on")};
        vocabulary_.barPhrases = {QStringLiteral("go to bar")};
    }

    [[nodiscard]] std::shared_ptr<const CompiledVocabulary> compile() const {
        return CompiledVocabulary::compile(vocabulary_, ModelFiles::locate().dictionary);
    }
    [[nodiscard]] static QString read(const CompiledVocabulary& compiled, const QString& words) {
        const auto reading = compiled.graph.read(words.split(u' '));
        return reading && reading->isWhole ? reading->text : QString();
    }

    RecognitionVocabulary vocabulary_;
};

TEST_F(VocabularyTest, OrdinaryPhrases_HaveNoProblems) {
    EXPECT_THAT(compile()->problems, testing::IsEmpty());
}

TEST_F(VocabularyTest, WordsOfTheDictionary_AreKnownWithTheirVariants) {
    const auto compiled = compile();
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("play")], QStringList{QStringLiteral("P L EY")});
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("a")],
              (QStringList{QStringLiteral("AH"), QStringLiteral("EY")}));
}

TEST_F(VocabularyTest, OtherAccents_AreKnownInPhrasesAlone) {
    vocabulary_.phrases << QStringLiteral("start recording") << QStringLiteral("count an hour in");
    const auto compiled = compile();
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("count")],
              (QStringList{QStringLiteral("K AW N T"), QStringLiteral("K AH UH N T")}));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("hour")],
              (QStringList{QStringLiteral("AW ER"), QStringLiteral("AW R"), QStringLiteral("AH UH ER"),
                           QStringLiteral("AW"), QStringLiteral("AH UH R")}));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("logic")],
              (QStringList{QStringLiteral("L AA JH IH K"), QStringLiteral("L AO JH IH K")}));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("on")],
              (QStringList{QStringLiteral("AA N"), QStringLiteral("AO N")}));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("start")],
              (QStringList{QStringLiteral("S T AA R T"), QStringLiteral("S T AA T")}));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("recording")],
              (QStringList{QStringLiteral("R AH K AO R D IH NG"), QStringLiteral("R IH K AO R D IH NG"),
                           QStringLiteral("R AH K AO D IH NG"), QStringLiteral("R IH K AO D IH NG")}));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("bar")],
              (QStringList{QStringLiteral("B AA R"), QStringLiteral("B AA")}));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("shot")], QStringList{QStringLiteral("SH AA T")});
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("sound")], QStringList{QStringLiteral("S AW N D")});
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("card")], QStringList{QStringLiteral("K AA R D")});
}

TEST_F(VocabularyTest, MetronomeThatTheDictionaryLacks_IsKnown) {
    EXPECT_EQ(compile()->pronunciations[QStringLiteral("metronome")],
              QStringList{QStringLiteral("M EH T R AH N OW M")});
}

TEST_F(VocabularyTest, ShortUnknownWord_MayBeReadOrSpelled) {
    vocabulary_.phrases << QStringLiteral("open eq");
    EXPECT_EQ(compile()->pronunciations[QStringLiteral("eq")],
              (QStringList{QStringLiteral("EH K"), QStringLiteral("IY K Y UW")}));
}

TEST_F(VocabularyTest, OddlyWrittenPhrase_IsDeliveredAsConfigured) {
    vocabulary_.phrases << QStringLiteral("réverb — up!") << QStringLiteral("add 808");
    const auto compiled = compile();
    EXPECT_THAT(compiled->problems, testing::IsEmpty());
    EXPECT_EQ(read(*compiled, QStringLiteral("réverb up")), QStringLiteral("réverb — up!"));
    EXPECT_EQ(read(*compiled, QStringLiteral("hey logic add eight oh eight")),
              QStringLiteral("hey logic add 808"));
}

TEST_F(VocabularyTest, Capitals_AreDeliveredInLowerCase) {
    vocabulary_.phrases << QStringLiteral("Mute ALL");
    EXPECT_EQ(read(*compile(), QStringLiteral("mute all")), QStringLiteral("mute all"));
}

TEST_F(VocabularyTest, PhraseThatCannotBeSaid_IsLeftOutWithAReason) {
    vocabulary_.phrases << QStringLiteral("play 音楽") << QStringLiteral("!!!")
                        << QStringLiteral("a ").repeated(20) << QStringLiteral("x").repeated(60);
    const auto compiled = compile();
    EXPECT_THAT(
        compiled->problems,
        testing::ElementsAre(
            QStringLiteral("“play 音楽” cannot be listened for: it is not known how “音楽” is pronounced."),
            QStringLiteral("“!!!” cannot be listened for: it has no letters or digits."),
            testing::ResultOf(
                [](const QString& line) { return line.endsWith(QStringLiteral("more than 16 words.")); },
                true),
            testing::ResultOf([](const QString& line) { return line.contains(QStringLiteral("pronounced")); },
                              true)));
    EXPECT_EQ(read(*compiled, QStringLiteral("play")), QStringLiteral("play"));
}

TEST_F(VocabularyTest, NoWakePhrase_IsTheWordLogic) {
    vocabulary_.wakePhrase.clear();
    EXPECT_EQ(read(*compile(), QStringLiteral("logic play")), QStringLiteral("logic play"));
}

TEST_F(VocabularyTest, WakePhraseThatCannotBeSaid_IsAProblemAndTheWordLogic) {
    vocabulary_.wakePhrase = QStringLiteral("???");
    const auto compiled = compile();
    EXPECT_EQ(compiled->problems.size(), 1);
    EXPECT_EQ(read(*compiled, QStringLiteral("logic play")), QStringLiteral("logic play"));
}

TEST_F(VocabularyTest, MissingDictionary_LeavesTheRulesOfReading) {
    const auto compiled = CompiledVocabulary::compile(vocabulary_, QStringLiteral("/nowhere"));
    EXPECT_EQ(compiled->pronunciations[QStringLiteral("play")], QStringList{QStringLiteral("P L EY")});
}

/// A language model as it was written.
class ReadModel {
public:
    explicit ReadModel(const QByteArray& arpa) {
        int order = 0;
        for (const QByteArray& line : arpa.split('\n')) {
            if (line.startsWith('\\')) {
                order = line.mid(1, 1).toInt();
                continue;
            }
            const QList<QByteArray> parts = line.split(' ');
            if (order == 0 || parts.size() < order + 1) {
                continue;
            }
            const QByteArray words = parts.mid(1, order).join(' ');
            probability_[words] = std::pow(10, parts[0].toDouble());
            if (parts.size() > order + 1) {
                backoff_[words] = std::pow(10, parts[order + 1].toDouble());
            }
            if (order == 1 && words != "<s>") {
                words_ << words;
            }
            if (order > 1) {
                histories_.insert(parts.mid(1, order - 1).join(' '));
            }
        }
    }

    [[nodiscard]] const QList<QByteArray>& words() const { return words_; }
    /// All after which there is a word that it names.
    [[nodiscard]] const QSet<QByteArray>& histories() const { return histories_; }

    [[nodiscard]] double given(const QByteArray& history, const QByteArray& word) const {
        if (history.isEmpty()) {
            return probability_.value(word);
        }
        const QByteArray all = history + ' ' + word;
        if (probability_.contains(all)) {
            return probability_.value(all);
        }
        const qsizetype space = history.indexOf(' ');
        return backoff_.value(history, 1) * given(space < 0 ? QByteArray() : history.mid(space + 1), word);
    }

private:
    QHash<QByteArray, double> probability_;
    QHash<QByteArray, double> backoff_;
    QList<QByteArray> words_;
    QSet<QByteArray> histories_;
};

TEST_F(VocabularyTest, LanguageModel_SumsToOneAfterEveryHistory) {
    vocabulary_.phrases << QStringLiteral("play that back") << QStringLiteral("save")
                        << QStringLiteral("save as");
    const ReadModel model(languageModel(compile()->graph, Expecting::Command));
    ASSERT_GT(model.histories().size(), 20);
    for (const QByteArray& history : model.histories()) {
        double sum = 0;
        for (const QByteArray& word : model.words()) {
            sum += model.given(history, word);
        }
        EXPECT_NEAR(sum, 1, 0.02) << history.constData();
    }
}

TEST_F(VocabularyTest, LanguageModel_PrefersNoPhraseForHowFewBeginLikeIt) {
    vocabulary_.phrases = {QStringLiteral("start recording"), QStringLiteral("stop recording"),
                           QStringLiteral("stop playback"), QStringLiteral("stop")};
    const ReadModel model(languageModel(compile()->graph, Expecting::WakePhrase));
    const auto recording = [&model](const QByteArray& first) {
        return model.given("hey logic", first) * model.given("logic " + first, "recording");
    };
    EXPECT_NEAR(recording("stop") / recording("start"), 1, 0.01);
    // A phrase with a number is one more.
    EXPECT_NEAR(model.given("hey logic", "stop") / model.given("hey logic", "go"), 3, 0.01);
    EXPECT_NEAR(model.given("to bar", "seven") / model.given("to bar", "twelve"), 1, 0.01);
}

} // namespace
} // namespace brivandel
