#include "platform/linux/recognition/CompiledVocabulary.h"

#include "platform/linux/recognition/BackgroundWords.h"
#include "platform/linux/recognition/LanguageModel.h"
#include "platform/linux/recognition/SpokenForms.h"

#include <algorithm>

namespace brivandel {

namespace {

// The word that wakes the matcher when no wake phrase is configured.
constexpr QLatin1StringView fallbackWakePhrase("logic");
// Nobody says more in one breath, and an utterance ends after some seconds.
constexpr qsizetype mostWords = 16;

/// The phrases of one vocabulary, their words and what is wrong with them.
class Compiler {
public:
    Compiler(const RecognitionVocabulary& vocabulary, const QString& dictionaryPath)
        : compiled_(std::make_shared<CompiledVocabulary>()) {
        compiled_->source = vocabulary;
        const QSet<QString> phraseWords = wordsOfPhrases();
        compiled_->pronunciations = pronounce(otherWords() + phraseWords, dictionaryPath);
        // Not of the other words: what is for us should be heard in every accent, what is not need not be.
        for (auto it = compiled_->pronunciations.begin(); it != compiled_->pronunciations.end(); ++it) {
            if (phraseWords.contains(it.key())) {
                addOtherAccents(it.value());
            }
        }
    }

    std::shared_ptr<const CompiledVocabulary> compile() {
        PhraseGraph& graph = compiled_->graph;
        const RecognitionVocabulary& source = compiled_->source;
        const auto setWakePhrase = [&graph](const QString& text, const QStringList& words) {
            graph.setWakePhrase(text, words);
        };
        if (source.wakePhrase.isEmpty() || !add(source.wakePhrase, setWakePhrase)) {
            add(fallbackWakePhrase, setWakePhrase);
        }
        SoundAlikeFinder finder(compiled_->pronunciations);
        for (const QString& phrase : source.phrases) {
            add(phrase, [&](const QString& text, const QStringList& words) {
                graph.addPhrase(text, words);
                finder.add(text, words);
            });
        }
        for (const QString& phrase : source.barPhrases) {
            add(phrase,
                [&graph](const QString& text, const QStringList& words) { graph.addBarPhrase(text, words); });
        }
        compiled_->soundAlikes = finder.find();
        for (const Expecting expecting : {Expecting::WakePhrase, Expecting::Command}) {
            compiled_->languageModels[expecting] = languageModel(graph, expecting);
        }
        return compiled_;
    }

private:
    static QSet<QString> otherWords() {
        QSet<QString> words;
        for (const QStringView word : backgroundWords()) {
            words.insert(word.toString());
        }
        for (const QLatin1StringView word : SpokenNumber::words()) {
            words.insert(word);
        }
        return words;
    }

    [[nodiscard]] QSet<QString> wordsOfPhrases() const {
        QSet<QString> words;
        const RecognitionVocabulary& source = compiled_->source;
        for (const QString& phrase :
             QStringList{source.wakePhrase, fallbackWakePhrase} + source.phrases + source.barPhrases) {
            for (const QStringList& form : spokenForms(phrase)) {
                words.unite(QSet<QString>(form.begin(), form.end()));
            }
        }
        return words;
    }

    /// Whether there is a way of saying it.
    template <typename Add>
    bool add(const QString& phrase, Add&& addForm) {
        const QList<QStringList> forms = spokenForms(phrase);
        if (forms.isEmpty()) {
            return refuse(phrase, QStringLiteral("it has no letters or digits"));
        }
        if (forms.front().size() > mostWords) {
            return refuse(phrase, QStringLiteral("it has more than %1 words").arg(mostWords));
        }
        for (const QString& word : forms.front()) {
            if (!compiled_->pronunciations.contains(word)) {
                return refuse(phrase, QStringLiteral("it is not known how “%1” is pronounced").arg(word));
            }
        }
        for (const QStringList& form : forms) {
            addForm(phrase.toLower(), form);
        }
        return true;
    }

    bool refuse(const QString& phrase, const QString& reason) {
        compiled_->problems << QStringLiteral("“%1” cannot be listened for: %2.").arg(phrase, reason);
        return false;
    }

    std::shared_ptr<CompiledVocabulary> compiled_;
};

} // namespace

std::shared_ptr<const CompiledVocabulary> CompiledVocabulary::compile(const RecognitionVocabulary& vocabulary,
                                                                      const QString& dictionaryPath) {
    return Compiler(vocabulary, dictionaryPath).compile();
}

} // namespace brivandel
