#include "platform/Desktop.h"
#include "platform/linux/desktop/PortalAppearance.h"
#include "platform/linux/desktop/StatusItemHosts.h"
#include "platform/linux/desktop/X11Events.h"

#include <QtGlobal>

#include <memory>
#include <utility>

namespace brivandel {

namespace {

class X11PointerPresses final : public PointerPresses {
public:
    explicit X11PointerPresses(std::shared_ptr<X11Events> events) : events_(std::move(events)) {}

    [[nodiscard]] bool areKnown() const override { return events_->knowsPresses(); }
    void watch(std::function<void(QPoint)> pressed) override {
        QObject::disconnect(connection_);
        if (pressed) {
            connection_ =
                QObject::connect(events_.get(), &X11Events::pressed, events_.get(), std::move(pressed));
        }
        events_->watchPresses(static_cast<bool>(connection_));
    }

private:
    std::shared_ptr<X11Events> events_;
    QMetaObject::Connection connection_;
};

// A window that is raised and asks for the keyboard brings its program along.
class NoActivation final : public ProgramActivation {
public:
    void activate() override {}
};

bool isSet(const char* variable) {
    return !qEnvironmentVariableIsEmpty(variable);
}

} // namespace

std::optional<QString> desktopProblem() {
    // Told which platform to use, Qt needs no display of these.
    if (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM")) {
        return std::nullopt;
    }
    return QStringLiteral(
        "there is no display to show a status item on (neither DISPLAY nor WAYLAND_DISPLAY is set); "
        "'brivandel listen' needs none");
}

std::unique_ptr<Desktop> makeDesktop() {
    auto events = std::make_shared<X11Events>();
    auto desktop = std::make_unique<Desktop>();
    desktop->appearance = std::make_unique<PortalAppearance>();
    desktop->statusArea = std::make_unique<StatusItemHosts>(events);
    desktop->pointerPresses = std::make_unique<X11PointerPresses>(events);
    desktop->activation = std::make_unique<NoActivation>();
    return desktop;
}

} // namespace brivandel
