#include "settings/GeneralSettingsView.h"

#include "listening/VoiceController.h"
#include "widgets/FormSection.h"
#include "widgets/Label.h"
#include "widgets/MenuPicker.h"
#include "widgets/Switch.h"
#include "widgets/TextField.h"
#include "widgets/Theme.h"
#include "widgets/ViewRefresh.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

#include <array>

namespace brivandel {

namespace {

constexpr std::array timeoutChoices = {1, 5, 10, 15, 30, 60}; // minutes

Switch* makeSwitch(const QString& text, const QString& objectName, const QString& toolTip = {}) {
    auto* toggle = new Switch(text);
    toggle->setObjectName(objectName);
    toggle->setToolTip(toolTip);
    return toggle;
}

} // namespace

GeneralSettingsView::GeneralSettingsView(VoiceController& controller, QWidget* parent)
    : QWidget(parent)
    , controller_(controller)
    , useWakeWord_(makeSwitch(QStringLiteral("Use wake word"), QStringLiteral("useWakeWord")))
    , wakeWord_(new TextField(QStringLiteral("Wake word"), QStringLiteral("Wake word")))
    , wakeWordHint_(new Label({}, TextStyle::Caption, NamedColor::Secondary))
    , wakeWordRow_(makeWakeWordRow())
    , audioFeedback_(makeSwitch(QStringLiteral("Audio feedback"), QStringLiteral("audioFeedback"),
                                QStringLiteral("Play a sound when commands are executed")))
    , timeout_(new MenuPicker(QStringLiteral("Timeout after")))
    , idleReminder_(makeSwitch(QStringLiteral("Remind me when idle"), QStringLiteral("idleReminder"),
                               QStringLiteral("Show a notification when no commands have been received")))
    , autoDisable_(makeSwitch(QStringLiteral("Auto-disable when idle"), QStringLiteral("autoDisable"),
                              QStringLiteral("Automatically stop listening after the timeout period")))
    , refresh_(new ViewRefresh(*this, [this] { showSettings(); })) {
    timeout_->setObjectName(QStringLiteral("timeout"));
    for (const int minutes : timeoutChoices) {
        timeout_->addItem(
            minutes == 1 ? QStringLiteral("1 minute") : QStringLiteral("%1 minutes").arg(minutes), minutes);
    }

    auto* wakeWord = new FormSection(QStringLiteral("Wake Word"));
    wakeWord->addRow(useWakeWord_);
    wakeWord->addRow(wakeWordRow_);
    auto* feedback = new FormSection(QStringLiteral("Feedback"));
    feedback->addRow(audioFeedback_);
    auto* idle = new FormSection(QStringLiteral("Idle Timeout"));
    idle->addRow(QStringLiteral("Timeout after"), timeout_);
    idle->addRow(idleReminder_);
    idle->addRow(autoDisable_);
    idle->addRow(new Label(QStringLiteral("Get a reminder or auto-stop after a period of inactivity"),
                           TextStyle::Caption, NamedColor::Secondary));

    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(defaultPadding, defaultPadding, defaultPadding, defaultPadding);
    form->setSpacing(defaultPadding);
    form->addWidget(wakeWord);
    form->addWidget(feedback);
    form->addWidget(idle);
    form->addStretch();

    bindControls();
    followController();
    showSettings();
}

QWidget* GeneralSettingsView::makeWakeWordRow() {
    wakeWord_->setObjectName(QStringLiteral("wakeWord"));
    wakeWord_->setToolTip(QStringLiteral("Say this phrase to activate listening (e.g., 'hey logic')"));
    wakeWordHint_->setObjectName(QStringLiteral("wakeWordHint"));
    wakeWordHint_->setMaximumLines(2);

    auto* row = new QWidget;
    auto* column = new QVBoxLayout(row);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(wakeWord_);
    column->addWidget(wakeWordHint_);
    return row;
}

void GeneralSettingsView::bindControls() {
    connect(useWakeWord_, &Switch::switched, &controller_, &VoiceController::setUseWakeWord);
    // Also when assistive technology sets it, which is no edit.
    connect(wakeWord_, &TextField::textChanged, &controller_, &VoiceController::setWakeWord);
    connect(audioFeedback_, &Switch::switched, &controller_, &VoiceController::setAudioFeedbackEnabled);
    connect(timeout_, &MenuPicker::activated, this, [this](int index) {
        const qlonglong minutes = timeout_->itemData(index).toLongLong();
        if (minutes != controller_.idleTimeoutMinutes()) {
            controller_.setIdleTimeoutMinutes(minutes);
        }
    });
    connect(idleReminder_, &Switch::switched, &controller_, &VoiceController::setIdleReminderEnabled);
    connect(autoDisable_, &Switch::switched, &controller_, &VoiceController::setAutoDisableOnIdle);
}

void GeneralSettingsView::followController() {
    for (const auto signal :
         {&VoiceController::useWakeWordChanged, &VoiceController::wakeWordChanged,
          &VoiceController::audioFeedbackEnabledChanged, &VoiceController::idleTimeoutMinutesChanged,
          &VoiceController::idleReminderEnabledChanged, &VoiceController::autoDisableOnIdleChanged}) {
        connect(&controller_, signal, refresh_, &ViewRefresh::request);
    }
}

void GeneralSettingsView::showSettings() {
    useWakeWord_->showState(controller_.useWakeWord());
    wakeWordRow_->setHidden(!controller_.useWakeWord());
    // Setting a text moves the cursor, which whoever types would notice.
    if (wakeWord_->text() != controller_.wakeWord()) {
        const QSignalBlocker own(wakeWord_);
        wakeWord_->setText(controller_.wakeWord());
    }
    wakeWordHint_->setText(QStringLiteral("Say '%1' to activate voice commands").arg(controller_.wakeWord()));
    audioFeedback_->showState(controller_.audioFeedbackEnabled());
    timeout_->showValue(controller_.idleTimeoutMinutes());
    idleReminder_->showState(controller_.idleReminderEnabled());
    autoDisable_->showState(controller_.autoDisableOnIdle());
}

} // namespace brivandel
