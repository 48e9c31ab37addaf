#include "platform/linux/recognition/NearWords.h"

#include "platform/linux/recognition/OnePhone.h"
#include "platform/linux/recognition/PronouncingDictionary.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace brivandel {

namespace {

constexpr std::size_t leastPhoneCount = 3;

/// No phone has more than two letters.
using Phone = std::uint16_t;
using Phones = std::vector<Phone>;

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

/// Who says the plural, or is thought to in a hiss after the word, means the word.
bool isPlural(const Phones& phones, const Phones& of) {
    constexpr std::array<Phone, 2> endings = {'S', 'Z'};
    return phones.size() == of.size() + 1 && std::ranges::find(endings, phones.back()) != endings.end() &&
           std::ranges::equal(std::span(phones).first(of.size()), of);
}

struct Way {
    QString word;
    Phones phones;
};

} // namespace

Pronunciations nearWords(const Pronunciations& words, const QString& dictionaryPath) {
    std::vector<Way> ways;
    QSet<QString> own;
    for (auto it = words.begin(); it != words.end(); ++it) {
        for (const QString& way : it.value()) {
            own.insert(way);
            Phones phones;
            readPhones(way.toLatin1(), phones);
            if (phones.size() >= leastPhoneCount) {
                ways.push_back({it.key(), std::move(phones)});
            }
        }
    }
    Pronunciations near;
    Phones phones;
    PronouncingDictionary(dictionaryPath).visit([&](QByteArrayView, QByteArrayView text) {
        readPhones(text, phones);
        for (const Way& way : ways) {
            if (!differByOnePhone(way.phones, phones) || isPlural(phones, way.phones)) {
                continue;
            }
            QStringList& known = near[way.word];
            if (const QString other = QString::fromLatin1(text);
                !own.contains(other) && !known.contains(other)) {
                known << other;
            }
        }
    });
    return near;
}

} // namespace brivandel
