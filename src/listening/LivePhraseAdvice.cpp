#include "listening/LivePhraseAdvice.h"

#include "listening/PhraseSettingsInForce.h"

#include <utility>

namespace brivandel {

namespace {

// Beyond those in force, phrases are remembered for as long as somebody may still be typing them.
constexpr qsizetype mostOthersRemembered = 1000;

} // namespace

LivePhraseAdvice::LivePhraseAdvice(VoiceController& controller, Services services)
    : controller_(controller)
    , services_(std::move(services)) {
    for (const auto signal :
         {&VoiceController::customCommandsChanged, &VoiceController::builtInTriggerOverridesChanged,
          &VoiceController::wakeWordChanged, &VoiceController::useWakeWordChanged}) {
        connect(&controller, signal, this, &LivePhraseAdvice::settingsChanged);
    }
}

void LivePhraseAdvice::settingsChanged() {
    adviser_.reset();
    Q_EMIT changed();
}

const PhraseAdviser& LivePhraseAdvice::adviser() {
    if (!adviser_) {
        const PhraseSettings settings = phraseSettingsInForce(controller_);
        const QStringList phrases = phrasesInForce(settings);
        phrasesInForce_ = {phrases.cbegin(), phrases.cend()};
        adviser_.emplace(settings, expected_);
    }
    return *adviser_;
}

std::vector<PhraseAdvice> LivePhraseAdvice::advice(const QString& phrase, const PhraseOwner& owner) {
    const PhraseAdviser& inForce = adviser();
    lookUp(phrase);
    return inForce.advice(phrase, owner, expected_.value(phrase));
}

// One look-up at a time; whoever still wants to know more then asks again.
void LivePhraseAdvice::lookUp(const QString& phrase) {
    if (phrase.isEmpty() || isLookingUp_) {
        return;
    }
    QSet<QString> wanted = phrasesInForce_;
    wanted.insert(phrase);
    wanted.subtract(lookedUp_);
    if (wanted.isEmpty()) {
        return;
    }
    isLookingUp_ = true;
    auto found =
        lifeline_.guard([this, wanted](const ExpectedPhrases& expected) { learn(wanted, expected); });
    services_.workQueue.run(
        [guide = services_.pronunciations, &mainQueue = services_.mainQueue, wanted, found] {
            mainQueue.post([found, expected = guide->expect(wanted)]() mutable { found(expected); });
        });
}

void LivePhraseAdvice::learn(const QSet<QString>& phrases, const ExpectedPhrases& expected) {
    isLookingUp_ = false;
    if (lookedUp_.size() > phrasesInForce_.size() + mostOthersRemembered) {
        lookedUp_.clear();
        expected_.clear();
    }
    lookedUp_.unite(phrases);
    expected_.insert(expected);
    adviser_.reset();
    Q_EMIT changed();
}

} // namespace brivandel
