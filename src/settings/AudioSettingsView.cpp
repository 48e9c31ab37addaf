#include "settings/AudioSettingsView.h"

#include "listening/VoiceController.h"
#include "widgets/Divider.h"
#include "widgets/FormSection.h"
#include "widgets/Label.h"
#include "widgets/MenuPicker.h"
#include "widgets/Plate.h"
#include "widgets/SymbolView.h"
#include "widgets/Theme.h"
#include "widgets/ViewRefresh.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <optional>

namespace brivandel {

namespace {

QWidget* makeTips() {
    constexpr int cornerRadius = 8;
    constexpr int symbolSide = 13;
    auto* box = new Plate(NamedColor::Blue, 0.1, cornerRadius);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(defaultPadding, defaultPadding, defaultPadding, defaultPadding);
    column->setSpacing(defaultSpacing);

    auto* title = new Label(QStringLiteral("Audio Interface Setup"), TextStyle::Caption);
    title->setFont(textFont(TextStyle::Caption, QFont::DemiBold));
    auto* head = new QHBoxLayout;
    head->setSpacing(6);
    head->addWidget(new SymbolView(QStringLiteral("info.circle"), symbolSide, NamedColor::Blue));
    head->addWidget(title);
    head->addStretch();
    column->addLayout(head);

    column->addWidget(new Label(QStringLiteral("If using an audio interface:"), TextStyle::Caption));
    for (const auto& tip : {QStringLiteral("• Connect your microphone to the interface"),
                            QStringLiteral("• Select your interface from the list above"),
                            QStringLiteral("• Both Logic and this app can listen to the same input")}) {
        column->addWidget(new Label(tip, TextStyle::Caption, NamedColor::Secondary));
    }
    return box;
}

} // namespace

AudioSettingsView::AudioSettingsView(VoiceController& controller, QWidget* parent)
    : QWidget(parent)
    , controller_(controller)
    , device_(new MenuPicker(QStringLiteral("Input Device")))
    , refresh_(new ViewRefresh(*this, [this] { showSelection(); })) {
    device_->setObjectName(QStringLiteral("inputDevice"));

    auto* caption = new Label(QStringLiteral("Input Device"));
    caption->setBuddy(device_); // where assistive technology takes the name of a combo box from its label
    auto* picker = new QHBoxLayout;
    picker->addWidget(caption);
    picker->addStretch();
    picker->addWidget(device_);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, defaultSpacing / 2, 0, defaultSpacing / 2);
    column->setSpacing(defaultSpacing);
    column->addWidget(new Label(QStringLiteral("Select audio input device for voice commands"),
                                TextStyle::Caption, NamedColor::Secondary));
    column->addLayout(picker);
    column->addWidget(new Divider);
    column->addWidget(makeTips());

    auto* section = new FormSection(QStringLiteral("Microphone Input"));
    section->addRow(content);
    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(defaultPadding, defaultPadding, defaultPadding, defaultPadding);
    form->addWidget(section);
    form->addStretch();

    connect(device_, &MenuPicker::activated, this, [this](int index) {
        const QVariant value = device_->itemData(index);
        const auto uid = value.isValid() ? std::optional(value.toString()) : std::nullopt;
        // The same one again must not interrupt the listening, as another does.
        if (uid != controller_.selectedAudioDevice()) {
            controller_.setSelectedAudioDevice(uid);
        }
    });
    connect(&controller_, &VoiceController::selectedAudioDeviceChanged, refresh_, &ViewRefresh::request);
    setAvailableDevices({});
}

void AudioSettingsView::setAvailableDevices(const QList<AudioDevice>& devices) {
    device_->clear();
    device_->addItem(QStringLiteral("System Default"));
    for (const AudioDevice& device : devices) {
        device_->addItem(device.name, device.uid);
    }
    device_->updateGeometry();
    showSelection();
}

void AudioSettingsView::showSelection() {
    const auto& uid = controller_.selectedAudioDevice();
    device_->showValue(uid ? QVariant(*uid) : QVariant());
}

} // namespace brivandel
