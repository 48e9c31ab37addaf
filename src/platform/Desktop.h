#pragma once

#include <QPoint>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace brivandel {

/// Whether the user wants light or dark windows.
class DesktopAppearance {
public:
    enum class Preference { None, Light, Dark };

    virtual ~DesktopAppearance() = default;
    /// None until the desktop has answered, and where it has no such setting. Main thread.
    [[nodiscard]] virtual Preference preference() const = 0;
    /// Called on the main thread each time that it changes.
    virtual void onChange(std::function<void()> changed) = 0;
};

/// The place of the desktop where status items are shown: a menu bar, a panel, a tray.
class StatusArea {
public:
    virtual ~StatusArea() = default;
    /// Whether there is one now. Main thread.
    [[nodiscard]] virtual bool isThere() const = 0;
    /// Called on the main thread when it comes or goes.
    virtual void onChange(std::function<void()> changed) = 0;
    /// Whether its icons are square; else they are as wide as they need to be.
    [[nodiscard]] virtual bool hasSquareIcons() const = 0;
    /// Whether it opens an item's menu by itself at every click; else a click is told, and the item opens it.
    [[nodiscard]] virtual bool opensMenus() const = 0;
};

/// Presses of the pointer's buttons anywhere on the screen, also in other programs' windows: what is open for
/// a moment closes when the user turns to something else.
class PointerPresses {
public:
    virtual ~PointerPresses() = default;
    /// Whether this desktop lets a program know.
    [[nodiscard]] virtual bool areKnown() const = 0;
    /// Called on the main thread with the place in physical pixels; an empty function ends it.
    virtual void watch(std::function<void(QPoint place)> pressed) = 0;
};

/// Which program the keyboard belongs to.
class ProgramActivation {
public:
    virtual ~ProgramActivation() = default;
    /// Brings this program in front of all others, where raising a window does not do that. Main thread.
    virtual void activate() = 0;
};

/// What a program with windows asks of its desktop. No member is null.
struct Desktop {
    std::unique_ptr<DesktopAppearance> appearance;
    std::unique_ptr<StatusArea> statusArea;
    std::unique_ptr<PointerPresses> pointerPresses;
    std::unique_ptr<ProgramActivation> activation;
};

/// Why no window can be shown here, and what to do; none when one can. Before the application object.
[[nodiscard]] std::optional<QString> desktopProblem();

/// Defined once a system. Main thread, after the application object; never waits for an answer of another
/// program.
[[nodiscard]] std::unique_ptr<Desktop> makeDesktop();

} // namespace brivandel
