#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

namespace brivandel {

/// Words, and for each the ways in which it is pronounced, as phones of the engine parted by spaces.
using Pronunciations = QHash<QString, QStringList>;

/// How the words are pronounced: after the dictionary, else by rule. A word that neither knows is left out.
/// Any thread; reads the whole dictionary file, some 10 ms.
[[nodiscard]] Pronunciations pronounce(const QSet<QString>& words, const QString& dictionaryPath);

/// The dictionary is American. Adds to the ways of one word those of speakers who round the vowel of "stop"
/// and begin that of "count" with a closed mouth, as the Scottish do, and who leave out the R of "start"
/// besides, as the English and the Australians do: to the American ear that is nearly "stop".
void addOtherAccents(QStringList& ways);

/// The words among these that the dictionary holds. Any thread; some 10 ms.
[[nodiscard]] QSet<QString> wordsInDictionary(const QSet<QString>& words, const QString& dictionaryPath);

} // namespace brivandel
