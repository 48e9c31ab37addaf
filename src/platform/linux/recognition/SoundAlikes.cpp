#include "platform/linux/recognition/SoundAlikes.h"

#include <algorithm>

namespace brivandel {

namespace {

/// Whether one phone is put in, left out or exchanged between the two, which are not the same.
bool differByOnePhone(const QStringList& one, const QStringList& other) {
    const auto [first, second] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
    const qsizetype oneLeft = one.end() - first;
    const qsizetype otherLeft = other.end() - second;
    // All that follows the difference, which of the longer one takes a phone.
    const qsizetype rest = std::max(oneLeft, otherLeft) - 1;
    return rest >= 0 && std::abs(oneLeft - otherLeft) <= 1 && one.last(rest) == other.last(rest);
}

} // namespace

void SoundAlikeFinder::add(const QString& text, const QStringList& words) {
    phrases_.append({text, words});
}

SoundAlikes SoundAlikeFinder::find() const {
    SoundAlikes result;
    for (const Phrase& phrase : phrases_) {
        for (const Phrase& other : phrases_) {
            if (phrase.text != other.text && areAlike(phrase, other)) {
                result[phrase.words.join(u' ')] << other.words;
            }
        }
    }
    return result;
}

bool SoundAlikeFinder::areAlike(const Phrase& one, const Phrase& other) const {
    if (one.words.size() != other.words.size()) {
        return false;
    }
    const auto [first, second] = std::ranges::mismatch(one.words, other.words);
    return first != one.words.end() && std::equal(first + 1, one.words.end(), second + 1) &&
           soundAlike(*first, *second);
}

bool SoundAlikeFinder::soundAlike(const QString& word, const QString& other) const {
    bool result = false;
    for (const QString& phones : pronunciations_.value(word)) {
        for (const QString& otherPhones : pronunciations_.value(other)) {
            if (phones == otherPhones) {
                // Nothing could tell them apart.
                return false;
            }
            result = result || differByOnePhone(phones.split(u' '), otherPhones.split(u' '));
        }
    }
    return result;
}

} // namespace brivandel
