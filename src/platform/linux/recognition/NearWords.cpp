#include "platform/linux/recognition/NearWords.h"

#include "platform/linux/recognition/OnePhone.h"
#include "platform/linux/recognition/PronouncingDictionary.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace brivandel {

namespace {

constexpr std::size_t leastPhoneCount = 3;

/// No phone has more than two letters.
using Phone = std::uint16_t;
using Phones = std::vector<Phone>;

constexpr Phone phone(std::string_view letters) {
    Phone code = 0;
    for (const char letter : letters) {
        code = static_cast<Phone>(code * 256 + static_cast<unsigned char>(letter));
    }
    return code;
}

/// Into phones, which keeps its memory: there are 130,000 of them to read.
void readPhones(QByteArrayView text, Phones& phones) {
    phones.assign(1, 0);
    for (const char letter : text) {
        if (letter == ' ') {
            phones.push_back(0);
        } else {
            phones.back() = static_cast<Phone>(phones.back() * 256 + static_cast<unsigned char>(letter));
        }
    }
}

/// Phones that an accent takes for one another: vowels, of which many languages have one where English has
/// two, and at the end of a word all that differs in the voice alone.
constexpr std::array<std::pair<Phone, Phone>, 6> likeVowels = {{
    {phone("AA"), phone("AO")},
    {phone("AA"), phone("AH")},
    {phone("AO"), phone("OW")},
    {phone("IH"), phone("IY")},
    {phone("EH"), phone("AE")},
    {phone("UH"), phone("UW")},
}};
constexpr std::array<std::pair<Phone, Phone>, 7> likeEndings = {{
    {phone("B"), phone("P")},
    {phone("D"), phone("T")},
    {phone("G"), phone("K")},
    {phone("V"), phone("F")},
    {phone("Z"), phone("S")},
    {phone("DH"), phone("TH")},
    {phone("JH"), phone("CH")},
}};

bool isAmong(std::span<const std::pair<Phone, Phone>> pairs, Phone one, Phone other) {
    return std::ranges::any_of(pairs, [&](const auto& pair) {
        return pair == std::pair(one, other) || pair == std::pair(other, one);
    });
}

/// Whether the one is the other in another accent, or with a hiss after it, as of the plural.
bool isHardlyAnother(const Phones& one, const Phones& other) {
    const auto [first, second] = std::ranges::mismatch(one, other);
    if (first == one.end() || second == other.end()) {
        return second != other.end() && (*second == phone("S") || *second == phone("Z"));
    }
    if (one.size() != other.size()) {
        return false;
    }
    return isAmong(likeVowels, *first, *second) ||
           (first + 1 == one.end() && isAmong(likeEndings, *first, *second));
}

/// One phone, wherever it is, leaves the beginning as it was or the end. That is soon seen, and hardly ever
/// so.
bool sharesAnEnd(const Phones& one, const Phones& other) {
    return one.front() == other.front() || one.back() == other.back();
}

bool isLetters(QByteArrayView word) {
    return std::ranges::all_of(word, [](char letter) { return letter >= 'a' && letter <= 'z'; });
}

} // namespace

Pronunciations nearWords(const Pronunciations& words, const Pronunciations& known,
                         const QString& dictionaryPath) {
    std::vector<Phones> ways;
    for (const QStringList& waysOfWord : words) {
        for (const QString& way : waysOfWord) {
            Phones phones;
            readPhones(way.toLatin1(), phones);
            if (phones.size() >= leastPhoneCount) {
                ways.push_back(std::move(phones));
            }
        }
    }
    QSet<QString> taken;
    for (const QStringList& waysOfWord : known) {
        taken.unite(QSet<QString>(waysOfWord.begin(), waysOfWord.end()));
    }
    Pronunciations near;
    Phones phones;
    PronouncingDictionary(dictionaryPath).visit([&](QByteArrayView word, QByteArrayView text) {
        readPhones(text, phones);
        const bool isNear = std::ranges::any_of(ways, [&phones](const Phones& way) {
            return sharesAnEnd(way, phones) && differByOnePhone(way, phones) && !isHardlyAnother(way, phones);
        });
        if (!isNear || !isLetters(word)) {
            return;
        }
        const QString name = QString::fromLatin1(word);
        const QString way = QString::fromLatin1(text);
        if (!known.contains(name) && !taken.contains(way)) {
            taken.insert(way);
            near[name] << way;
        }
    });
    return near;
}

} // namespace brivandel
