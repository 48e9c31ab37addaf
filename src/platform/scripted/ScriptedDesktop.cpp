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
    ScriptedDesktop scripted{std::make_unique<Desktop>(), *appearance, *statusArea, *pointerPresses};
    scripted.desktop->appearance = std::move(appearance);
    scripted.desktop->statusArea = std::move(statusArea);
    scripted.desktop->pointerPresses = std::move(pointerPresses);
    return scripted;
}

} // namespace brivandel
