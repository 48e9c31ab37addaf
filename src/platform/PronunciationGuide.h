#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

namespace brivandel {

/// One word of a phrase as the recogniser listens for it.
struct ExpectedWord {
    QString word;
    /// American English in ARPAbet, parted by spaces, as in "K W AA N T AY Z"; empty when the word cannot be
    /// listened for.
    QString phones;
    bool isInDictionary = false; ///< else the phones were worked out by rule
};

using ExpectedPhrases = QHash<QString, QList<ExpectedWord>>;

/// What the recogniser of this system takes phrases to sound like.
class PronunciationGuide {
public:
    virtual ~PronunciationGuide() = default;
    /// For each phrase the words by which it is listened for. Phrases about which nothing is known are left
    /// out, which are all where the system does not tell. Any thread; may take tens of milliseconds.
    [[nodiscard]] virtual ExpectedPhrases expect(const QSet<QString>& phrases) const = 0;
};

} // namespace brivandel
