#pragma once

#include "engine/PhraseAdvice.h"
#include "platform/Lifeline.h"
#include "platform/MainQueue.h"
#include "platform/PronunciationGuide.h"
#include "platform/WorkQueue.h"

#include <QObject>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace brivandel {

class VoiceController;

/// Advice about phrases by the settings in force. How phrases sound is looked up off the main thread, when
/// advice is asked for the first time: until then there is none about sound. Main thread.
class LivePhraseAdvice final : public QObject {
    Q_OBJECT
public:
    struct Services {
        MainQueue& mainQueue;
        WorkQueue& workQueue;
        std::shared_ptr<const PronunciationGuide> pronunciations;
    };

    /// Controller and queues must outlive it.
    LivePhraseAdvice(VoiceController& controller, Services services);

    /// The phrase as it would be stored.
    [[nodiscard]] std::vector<PhraseAdvice> advice(const QString& phrase, const PhraseOwner& owner);

Q_SIGNALS:
    /// What was advised may not hold any more.
    void changed();

private:
    void settingsChanged();
    [[nodiscard]] const PhraseAdviser& adviser();
    void lookUp(const QString& phrase);
    void learn(const QSet<QString>& phrases, const ExpectedPhrases& expected);

    VoiceController& controller_;
    Services services_;
    std::optional<PhraseAdviser> adviser_; // by what is in force and known, made when it is asked
    QSet<QString> phrasesInForce_;         // as long as there is an adviser
    ExpectedPhrases expected_;
    QSet<QString> lookedUp_; // also those about which nothing is known
    bool isLookingUp_ = false;
    Lifeline lifeline_;
};

} // namespace brivandel
