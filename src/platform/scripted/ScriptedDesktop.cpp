#include "platform/scripted/ScriptedDesktop.h"

namespace brivandel {

void ScriptedAppearance::setPreference(Preference preference) {
    preference_ = preference;
    if (changed_) {
        changed_();
    }
}

void ScriptedStatusArea::setIsThere(bool isThere) {
    isThere_ = isThere;
    if (changed_) {
        changed_();
    }
}

void ScriptedPointerPresses::press(QPoint place) {
    if (pressed_) {
        pressed_(place);
    }
}

ScriptedDesktop makeScriptedDesktop() {
    auto appearance = std::make_unique<ScriptedAppearance>();
    auto statusArea = std::make_unique<ScriptedStatusArea>();
    auto pointerPresses = std::make_unique<ScriptedPointerPresses>();
    auto activation = std::make_unique<ScriptedActivation>();
    ScriptedDesktop scripted{std::make_unique<Desktop>(), *appearance, *statusArea, *pointerPresses,
                             *activation};
    scripted.desktop->appearance = std::move(appearance);
    scripted.desktop->statusArea = std::move(statusArea);
    scripted.desktop->pointerPresses = std::move(pointerPresses);
    scripted.desktop->activation = std::move(activation);
    return scripted;
}

} // namespace brivandel
