#include "engine/WakePhrase.h"

#include <string_view>

namespace brivandel {

namespace {

constexpr QStringView fallbackPhrase = u"logic";

std::u16string_view unitsOf(QStringView text) {
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

std::optional<QStringView> textAfterLast(QStringView transcript, QStringView phrase) {
    // QStringView::lastIndexOf() (Qt 6.4) finds a zero character also behind the end of the text.
    const std::size_t found = unitsOf(transcript).rfind(unitsOf(phrase));
    if (phrase.isEmpty() || found == std::u16string_view::npos) {
        return std::nullopt;
    }
    return transcript.sliced(static_cast<qsizetype>(found) + phrase.size());
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
