#include "platform/linux/desktop/StatusItemHosts.h"

#include "platform/linux/desktop/X11Events.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>

#include <utility>

namespace brivandel {

StatusItemHosts::StatusItemHosts(std::shared_ptr<X11Events> display)
    : display_(std::move(display))
    , watcher_(new QDBusServiceWatcher(
          QStringLiteral("org.kde.StatusNotifierWatcher"), QDBusConnection::sessionBus(),
          QDBusServiceWatcher::WatchForRegistration | QDBusServiceWatcher::WatchForUnregistration, this)) {
    connect(display_.get(), &X11Events::trayChanged, this, &StatusItemHosts::tell);
    connect(watcher_, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        hasPanel_ = true;
        tell();
    });
    connect(watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        hasPanel_ = false;
        tell();
    });
    // The bus itself answers, at once: no program is asked.
    if (const auto bus = QDBusConnection::sessionBus(); bus.isConnected()) {
        hasPanel_ = bus.interface()->isServiceRegistered(watcher_->watchedServices().constFirst());
    }
}

StatusItemHosts::~StatusItemHosts() = default;

bool StatusItemHosts::isThere() const {
    return hasPanel_ || display_->hasTray();
}

void StatusItemHosts::onChange(std::function<void()> changed) {
    changed_ = std::move(changed);
}

void StatusItemHosts::tell() {
    if (changed_) {
        changed_();
    }
}

} // namespace brivandel
