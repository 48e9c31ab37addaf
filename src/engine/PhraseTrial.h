#pragma once

#include "engine/PhraseSettings.h"
#include "engine/TranscriptMatcher.h"

#include <QString>

#include <vector>

namespace brivandel {

/// What would happen if a phrase were heard.
struct PhraseOutcome {
    QString phrase;                  ///< as it was given
    bool woke = false;               ///< the wake phrase, or "logic" for it, was found
    bool isMatched = false;          ///< it came as far as being matched
    std::vector<Decision> decisions; ///< the first is carried out; the others are hidden by it
};

/// Tries phrases against settings; nothing is sent.
class PhraseTrial {
public:
    explicit PhraseTrial(const PhraseSettings& settings);
    [[nodiscard]] PhraseOutcome outcome(const QString& phrase) const;

private:
    QString wakeWord_;
    bool useWakeWord_;
    TranscriptMatcher matcher_;
};

} // namespace brivandel
