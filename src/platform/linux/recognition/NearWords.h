#pragma once

#include "platform/linux/recognition/Pronunciations.h"

namespace brivandel {

/// The words of the dictionary that one phone makes of one of the words, as "smart" of "start", each only as
/// it is pronounced then, and of those that sound the same only one. None of the known words or what sounds
/// like one of them, and nothing that may be one of the words in another accent or in the plural. For words
/// of one or two phones, as "on" and "to", there are none: those are said too carelessly. Any thread; reads
/// the whole dictionary file, some 30 ms for the words of the built-in commands.
[[nodiscard]] Pronunciations nearWords(const Pronunciations& words, const Pronunciations& known,
                                       const QString& dictionaryPath);

} // namespace brivandel
