#pragma once

#include "engine/PhraseTrial.h"
#include "platform/MainQueue.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>
#include <optional>

namespace brivandel {

class Button;
class Label;
class Plate;
class SpokenTrial;
class TextField;
class ViewRefresh;
class VoiceController;

/// What is shown of an outcome.
struct OutcomeText {
    QString headline;    ///< which command, or why none
    QStringList details; ///< the keys, what is hidden
};

/// What a phrase would do, in words.
[[nodiscard]] OutcomeText outcomeText(const QString& phrase, const PhraseSettings& settings,
                                      const PhraseTrial& trial);

/// A field for a phrase, typed or spoken while a button is held, and under it what the phrase would do.
/// Nothing is sent.
class PhraseTrialView final : public QWidget {
    Q_OBJECT
public:
    /// All three must outlive it.
    PhraseTrialView(VoiceController& controller, MainQueue& mainQueue, SpokenTrial& spokenTrial,
                    QWidget* parent = nullptr);
    ~PhraseTrialView() override;

protected:
    /// A trial ends with the window.
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] Plate* makeOutcome();
    void press();
    void release();
    void showState();
    void showOutcome();
    void showText(const OutcomeText& text);
    void settingsChanged();

    VoiceController& controller_;
    MainQueue& mainQueue_;
    SpokenTrial& spokenTrial_;
    std::optional<PhraseTrial> trial_; // by the settings in force, made when one is wanted
    TextField* phrase_;
    Button* speak_;
    Label* headline_;
    Label* details_;
    Plate* outcome_;
    ViewRefresh* refresh_;
    std::unique_ptr<Timer> releasing_;
};

} // namespace brivandel
