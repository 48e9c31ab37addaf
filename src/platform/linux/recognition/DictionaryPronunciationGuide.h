#pragma once

#include "platform/PronunciationGuide.h"

#include <QString>

namespace brivandel {

/// Expects what the offline recogniser would listen for: the first way to say each phrase, after the
/// dictionary, else by reading rules.
class DictionaryPronunciationGuide final : public PronunciationGuide {
public:
    explicit DictionaryPronunciationGuide(QString dictionaryPath);
    [[nodiscard]] ExpectedPhrases expect(const QSet<QString>& phrases) const override;

private:
    QString dictionaryPath_;
};

} // namespace brivandel
