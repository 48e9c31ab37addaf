#pragma once

#include "platform/linux/recognition/Pronunciations.h"

namespace brivandel {

/// For each of the words how others in the dictionary are pronounced that one phone makes of it, as "smart"
/// of "start": what else may have been said where such a word seems to have been. Nothing for words of one
/// or two phones, as "on" and "to", which are said too carelessly to tell them from others; no way in which
/// one of the words themselves is pronounced, and none that it may have in another accent. Any thread; reads
/// the whole dictionary file, some 30 ms for the words of the built-in commands.
[[nodiscard]] Pronunciations nearWords(const Pronunciations& words, const QString& dictionaryPath);

} // namespace brivandel
