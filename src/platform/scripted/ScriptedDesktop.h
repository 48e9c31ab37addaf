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
    [[nodiscard]] bool opensMenus() const override { return opensMenus_; }

    void setIsThere(bool isThere);
    void setOpensMenus(bool opensMenus) { opensMenus_ = opensMenus; }

private:
    bool isThere_ = true;
    bool opensMenus_ = false;
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

class ScriptedActivation final : public ProgramActivation {
public:
    void activate() override { ++count_; }

    /// How often the program has come to the front.
    [[nodiscard]] int count() const { return count_; }

private:
    int count_ = 0;
};

/// A desktop that is played from outside. One thread.
struct ScriptedDesktop {
    std::unique_ptr<Desktop> desktop;
    ScriptedAppearance& appearance;
    ScriptedStatusArea& statusArea;
    ScriptedPointerPresses& pointerPresses;
    ScriptedActivation& activation;
};

/// With a status area, and without a preference for light or dark.
[[nodiscard]] ScriptedDesktop makeScriptedDesktop();

} // namespace brivandel
