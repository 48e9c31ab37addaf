#pragma once

#include "platform/linux/recognition/Pronunciations.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace brivandel {

/// For phrases, word by word and parted by spaces, those that one phone makes of them: "click on" and "click
/// off" share a vowel for many speakers, and all but the last consonant.
using SoundAlikes = QHash<QString, QList<QStringList>>;

/// Which of the phrases differ in one word, and that by one phone. Phrases for the same text are one phrase.
class SoundAlikeFinder {
public:
    explicit SoundAlikeFinder(const Pronunciations& pronunciations) : pronunciations_(pronunciations) {}

    void add(const QString& text, const QStringList& words);
    [[nodiscard]] SoundAlikes find() const;

private:
    struct Phrase {
        QString text;
        QStringList words;
    };
    [[nodiscard]] bool areAlike(const Phrase& one, const Phrase& other) const;
    [[nodiscard]] bool soundAlike(const QString& word, const QString& other) const;

    const Pronunciations& pronunciations_;
    QList<Phrase> phrases_;
};

} // namespace brivandel
