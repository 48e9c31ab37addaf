#include "views/PhraseTrialView.h"

#include "engine/DecisionText.h"
#include "listening/PhraseSettingsInForce.h"
#include "listening/SpokenTrial.h"
#include "widgets/Button.h"
#include "widgets/Label.h"
#include "widgets/Plate.h"
#include "widgets/SymbolView.h"
#include "widgets/TextField.h"
#include "widgets/ViewRefresh.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <chrono>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

// A key that is held may arrive as many short presses, some 30 ms apart: X repeats it so.
constexpr auto releaseCountsAfter = 100ms;
constexpr int fieldSymbolSide = 15;
constexpr int rowSpacing = 6;
constexpr int plateCornerRadius = 8;
constexpr double plateOpacity = 0.08;
constexpr int mostHeadlineLines = 2;
constexpr int mostDetailLines = 4;

QStringList detailsOf(const std::vector<Decision>& decisions) {
    QStringList details;
    if (const QString keys = decisionKeys(decisions.front()); !keys.isEmpty()) {
        details += QStringLiteral("Sends ") + keys;
    }
    for (std::size_t index = 1; index < decisions.size(); ++index) {
        details += QStringLiteral("Hides ") + decisionText(decisions[index]);
    }
    return details;
}

} // namespace

OutcomeText outcomeText(const QString& phrase, const PhraseSettings& settings, const PhraseTrial& trial) {
    const PhraseOutcome outcome = trial.outcome(phrase);
    if (!outcome.decisions.empty()) {
        return {decisionText(outcome.decisions.front()), detailsOf(outcome.decisions)};
    }
    if (outcome.isMatched) {
        return {QStringLiteral("No command"), {}};
    }
    if (outcome.woke) {
        return {QStringLiteral("Woken: a command may follow"), {}};
    }
    OutcomeText text{QStringLiteral("Not woken: say “%1” first").arg(settings.wakeWord), {}};
    const PhraseOutcome afterWaking = trial.outcome(settings.wakeWord.toLower() + u' ' + phrase);
    if (!afterWaking.decisions.empty()) {
        text.details += QStringLiteral("After it: ") + decisionText(afterWaking.decisions.front());
    }
    return text;
}

PhraseTrialView::PhraseTrialView(VoiceController& controller, MainQueue& mainQueue, SpokenTrial& spokenTrial,
                                 QWidget* parent)
    : QWidget(parent)
    , controller_(controller)
    , mainQueue_(mainQueue)
    , spokenTrial_(spokenTrial)
    , phrase_(new TextField(QStringLiteral("Try a phrase..."), QStringLiteral("Try a phrase")))
    , speak_(Button::withSymbol(QStringLiteral("mic.fill"), QStringLiteral("Hold to speak")))
    , headline_(new Label(QString(), TextStyle::Body))
    , details_(new Label(QString(), TextStyle::Caption, NamedColor::Secondary))
    , outcome_(makeOutcome())
    , refresh_(new ViewRefresh(*this, [this] { showOutcome(); })) {
    phrase_->setObjectName(QStringLiteral("trialPhrase"));
    phrase_->setClearButtonEnabled(true);
    speak_->setObjectName(QStringLiteral("speak"));
    auto* field = new QHBoxLayout;
    field->setSpacing(rowSpacing);
    field->addWidget(new SymbolView(QStringLiteral("waveform"), fieldSymbolSide, NamedColor::Secondary));
    field->addWidget(phrase_, 1);
    field->addWidget(speak_);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(rowSpacing);
    stack->addLayout(field);
    stack->addWidget(outcome_);

    connect(phrase_, &TextField::textChanged, refresh_, &ViewRefresh::request);
    connect(speak_, &Button::pressed, this, &PhraseTrialView::press);
    connect(speak_, &Button::released, this, &PhraseTrialView::release);
    connect(&spokenTrial, &SpokenTrial::heard, phrase_, &TextField::setText);
    connect(&spokenTrial, &SpokenTrial::stateChanged, refresh_, &ViewRefresh::request);
    for (const auto signal :
         {&VoiceController::customCommandsChanged, &VoiceController::builtInTriggerOverridesChanged,
          &VoiceController::wakeWordChanged, &VoiceController::useWakeWordChanged}) {
        connect(&controller, signal, this, &PhraseTrialView::settingsChanged);
    }
    showOutcome();
}

PhraseTrialView::~PhraseTrialView() {
    delete speak_; // it may be held, and says so when it goes
    spokenTrial_.end();
}

Plate* PhraseTrialView::makeOutcome() {
    headline_->setObjectName(QStringLiteral("trialHeadline"));
    headline_->setWordWrap(true);
    headline_->setMaximumLines(mostHeadlineLines);
    details_->setObjectName(QStringLiteral("trialDetails"));
    details_->setWordWrap(true);
    details_->setMaximumLines(mostDetailLines);
    auto* plate = new Plate(NamedColor::Secondary, plateOpacity, plateCornerRadius);
    auto* stack = new QVBoxLayout(plate);
    stack->setContentsMargins(10, 8, 10, 8);
    stack->setSpacing(2);
    stack->addWidget(headline_);
    stack->addWidget(details_);
    return plate;
}

void PhraseTrialView::hideEvent(QHideEvent* event) {
    releasing_.reset();
    spokenTrial_.end();
    QWidget::hideEvent(event);
}

void PhraseTrialView::press() {
    releasing_.reset();
    if (!spokenTrial_.isListening()) {
        phrase_->clear();
        spokenTrial_.begin();
    }
}

void PhraseTrialView::release() {
    releasing_ = mainQueue_.startTimer(releaseCountsAfter, [this] { spokenTrial_.end(); });
}

void PhraseTrialView::showState() {
    speak_->setEnabled(spokenTrial_.isAvailable());
    speak_->setToolTip(spokenTrial_.isAvailable()
                           ? QStringLiteral("Hold to speak")
                           : QStringLiteral("Switch voice control off to try a spoken phrase"));
    speak_->setTint(spokenTrial_.isListening() ? NamedColor::Red : NamedColor::Secondary);
}

void PhraseTrialView::settingsChanged() {
    trial_.reset();
    refresh_->request();
}

void PhraseTrialView::showOutcome() {
    showState();
    const QString phrase = phrase_->text().simplified();
    if (phrase.isEmpty()) { // until something is heard, how the listening goes stands where the outcome will
        showText({spokenTrial_.status(), {}});
        return;
    }
    const PhraseSettings settings = phraseSettingsInForce(controller_);
    if (!trial_) {
        trial_.emplace(settings);
    }
    showText(outcomeText(phrase, settings, *trial_));
}

void PhraseTrialView::showText(const OutcomeText& text) {
    outcome_->setHidden(text.headline.isEmpty());
    headline_->setText(text.headline);
    details_->setText(text.details.join(u'\n'));
    details_->setHidden(text.details.isEmpty());
}

} // namespace brivandel
