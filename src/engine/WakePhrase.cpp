#include "engine/WakePhrase.h"

namespace brivandel {

namespace {

constexpr QStringView fallbackPhrase = u"logic";

std::optional<QStringView> textAfterLast(QStringView transcript, QStringView phrase) {
    const qsizetype found = phrase.isEmpty() ? -1 : transcript.lastIndexOf(phrase);
    if (found < 0) {
        return std::nullopt;
    }
    return transcript.sliced(found + phrase.size());
}

// Line breaks stay: QStringView::trimmed() would take them, too.
QStringView withoutOuterBlanks(QStringView text) {
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && isBlank(text.back())) {
        text.chop(1);
    }
    return text;
}

} // namespace

std::optional<QStringView> textAfterWakePhrase(QStringView transcript, QStringView wakePhrase) {
    auto rest = textAfterLast(transcript, wakePhrase);
    if (!rest) {
        rest = textAfterLast(transcript, fallbackPhrase);
    }
    if (!rest) {
        return std::nullopt;
    }
    return withoutOuterBlanks(*rest);
}

} // namespace brivandel
