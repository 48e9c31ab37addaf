#include "platform/linux/recognition/Pronunciations.h"

#include "platform/linux/recognition/LetterToSound.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace brivandel {

namespace {

// Longer words are no words; the engine's tables have to end somewhere.
constexpr qsizetype longestWord = 40;
// "eq", "bpm", "fx": short enough to be spelled, by those who do not read them out.
constexpr qsizetype longestSpelledWord = 3;

/// Names of letters stand in the dictionary as "b.", since "a" alone is an article.
QString letterEntry(QChar letter) {
    return letter + QStringLiteral(".");
}

Pronunciations lookUp(const QSet<QString>& words, const QString& dictionaryPath) {
    QSet<QByteArray> wanted;
    for (const QString& word : words) {
        wanted.insert(word.toUtf8());
        if (word.size() <= longestSpelledWord) {
            for (const QChar letter : word) {
                wanted.insert(letterEntry(letter).toUtf8());
            }
        }
    }

    Pronunciations found;
    QFile file(dictionaryPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return found;
    }
    const QByteArray text = file.readAll();
    // "word PH ON ES", other pronunciations as "word(2) PH ON ES".
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = text.indexOf('\n', at);
        end = end < 0 ? text.size() : end;
        const QByteArrayView line = QByteArrayView(text).sliced(at, end - at);
        at = end + 1;
        const qsizetype space = line.indexOf(' ');
        if (space <= 0) {
            continue;
        }
        QByteArrayView word = line.first(space);
        if (word.endsWith(')')) {
            word = word.first(std::max<qsizetype>(word.indexOf('('), 0));
        }
        if (wanted.contains(QByteArray::fromRawData(word.data(), word.size()))) {
            found[QString::fromUtf8(word)] << QString::fromLatin1(line.sliced(space + 1).trimmed());
        }
    }
    return found;
}

QString spelled(const QString& word, const Pronunciations& dictionary) {
    QStringList phones;
    for (const QChar letter : word) {
        const QStringList name = dictionary.value(letterEntry(letter));
        if (name.isEmpty()) {
            return {};
        }
        phones << name.front();
    }
    return phones.join(u' ');
}

QStringList pronounceUnknown(const QString& word, const Pronunciations& dictionary) {
    // A word of the built-in commands, and the one that the reading rules must not be trusted with.
    if (word == QLatin1StringView("metronome")) {
        return {QStringLiteral("M EH T R AH N OW M")};
    }
    QStringList ways;
    if (const QString read = phonesByRule(word); !read.isEmpty()) {
        ways << read;
    }
    if (word.size() <= longestSpelledWord) {
        if (const QString letters = spelled(word, dictionary);
            !letters.isEmpty() && !ways.contains(letters)) {
            ways << letters;
        }
    }
    return ways;
}

} // namespace

Pronunciations pronounce(const QSet<QString>& words, const QString& dictionaryPath) {
    const Pronunciations dictionary = lookUp(words, dictionaryPath);
    Pronunciations result;
    for (const QString& word : words) {
        if (word.size() > longestWord) {
            continue;
        }
        QStringList ways = dictionary.value(word);
        if (ways.isEmpty()) {
            ways = pronounceUnknown(word, dictionary);
        }
        if (!ways.isEmpty()) {
            result.insert(word, ways);
        }
    }
    return result;
}

void addOtherAccents(QStringList& ways) {
    static const QRegularExpression vowelOfCount(QStringLiteral("\\bAW\\b"));
    // Before an R it is the vowel of "bar", which nobody rounds.
    static const QRegularExpression vowelOfStop(QStringLiteral("\\bAA\\b(?! R\\b)"));
    static const QRegularExpression silentR(QStringLiteral(" R\\b(?! [AEIOU])"));
    const auto add = [&ways](const QString& way) {
        if (!ways.contains(way)) {
            ways << way;
        }
    };
    for (const QString& way : QStringList(ways)) {
        const QString rounded = QString(way).replace(vowelOfStop, QStringLiteral("AO"));
        add(rounded);
        add(QString(rounded).remove(silentR));
        add(QString(rounded).replace(vowelOfCount, QStringLiteral("AH UH")));
    }
}

QSet<QString> wordsInDictionary(const QSet<QString>& words, const QString& dictionaryPath) {
    const Pronunciations dictionary = lookUp(words, dictionaryPath);
    QSet<QString> found = words;
    found.removeIf([&dictionary](const QString& word) { return !dictionary.contains(word); });
    return found;
}

} // namespace brivandel
