#include "platform/linux/recognition/DictionaryPronunciationGuide.h"

#include "platform/linux/recognition/Pronunciations.h"
#include "platform/linux/recognition/SpokenForms.h"

#include <utility>

namespace brivandel {

DictionaryPronunciationGuide::DictionaryPronunciationGuide(QString dictionaryPath)
    : dictionaryPath_(std::move(dictionaryPath)) {}

ExpectedPhrases DictionaryPronunciationGuide::expect(const QSet<QString>& phrases) const {
    QHash<QString, QStringList> wordsOf;
    QSet<QString> words;
    for (const QString& phrase : phrases) {
        const QList<QStringList> forms = spokenForms(phrase);
        if (!forms.isEmpty()) {
            wordsOf.insert(phrase, forms.front());
            words.unite({forms.front().cbegin(), forms.front().cend()});
        }
    }

    const Pronunciations pronunciations = pronounce(words, dictionaryPath_);
    const QSet<QString> known = wordsInDictionary(words, dictionaryPath_);
    ExpectedPhrases expected;
    for (auto phrase = wordsOf.cbegin(); phrase != wordsOf.cend(); ++phrase) {
        QList<ExpectedWord> expectedWords;
        for (const QString& word : *phrase) {
            expectedWords += {word, pronunciations.value(word).value(0), known.contains(word)};
        }
        expected.insert(phrase.key(), expectedWords);
    }
    return expected;
}

} // namespace brivandel
