#pragma once

#include <QString>

namespace brivandel {

/// The phones of a word that no dictionary holds, as in "K W AA N T AY Z": worked out by the speech
/// synthesiser's reading rules for American English. Empty when they give none, as for letters that are not
/// Latin or when the synthesiser's data are not installed. Any thread; one at a time is served, in well below
/// a millisecond.
[[nodiscard]] QString phonesByRule(const QString& word);

/// The phones of the engine for a pronunciation in the International Phonetic Alphabet, as the synthesiser
/// writes it.
[[nodiscard]] QString phonesFromIpa(QStringView ipa);

} // namespace brivandel
