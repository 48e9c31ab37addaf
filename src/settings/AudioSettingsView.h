#pragma once

#include "platform/AudioDevices.h"

#include <QList>
#include <QWidget>

namespace brivandel {

class MenuPicker;
class ViewRefresh;
class VoiceController;

/// The Audio tab: which input is listened to.
class AudioSettingsView final : public QWidget {
    Q_OBJECT
public:
    /// The controller must outlive it. It offers no device but the system's own until it is told of others.
    explicit AudioSettingsView(VoiceController& controller, QWidget* parent = nullptr);

    void setAvailableDevices(const QList<AudioDevice>& devices);

private:
    void showSelection();

    VoiceController& controller_;
    MenuPicker* device_;
    ViewRefresh* refresh_;
};

} // namespace brivandel
