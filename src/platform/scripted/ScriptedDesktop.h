#pragma once

#include "platform/Desktop.h"

#include <functional>
#include <utility>

namespace brivandel {

class ScriptedAppearance final : public DesktopAppearance {
public:
    [[nodiscard]] Preference preference() const override { return preference_; }
    void onChange(std::function<void()> changed) override { changed_ = std::move(changed); }

    void setPreference(Preference preference);

private:
    Preference preference_ = Preference::None;
    std::function<void()> changed_;
};

class ScriptedStatusArea final : public StatusArea {
public:
    [[nodiscard]] bool isThere() const override { return isThere_; }
    void onChange(std::function<void()> changed) override { changed_ = std::move(changed); }
    [[nodiscard]] bool hasSquareIcons() const override { return true; }

    void setIsThere(bool isThere);

private:
    bool isThere_ = true;
    std::function<void()> changed_;
};

class ScriptedPointerPresses final : public PointerPresses {
public:
    [[nodiscard]] bool areKnown() const override { return true; }
    void watch(std::function<void(QPoint)> pressed) override { pressed_ = std::move(pressed); }

    /// A button is pressed there, if anyone watches.
    void press(QPoint place);
    [[nodiscard]] bool isWatched() const { return static_cast<bool>(pressed_); }

private:
    std::function<void(QPoint)> pressed_;
};

/// A desktop that is played from outside. One thread.
struct ScriptedDesktop {
    std::unique_ptr<Desktop> desktop;
    ScriptedAppearance& appearance;
    ScriptedStatusArea& statusArea;
    ScriptedPointerPresses& pointerPresses;
};

/// With a status area, and without a preference for light or dark.
[[nodiscard]] ScriptedDesktop makeScriptedDesktop();

} // namespace brivandel
