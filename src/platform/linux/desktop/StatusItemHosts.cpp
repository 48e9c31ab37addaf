#include "platform/linux/desktop/StatusItemHosts.h"

#include "platform/linux/desktop/X11Events.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <utility>

namespace brivandel {

namespace {

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");
const auto watcherInterface = watcherService;

} // namespace

StatusItemHosts::StatusItemHosts(std::shared_ptr<X11Events> display)
    : display_(std::move(display))
    , watcher_(new QDBusServiceWatcher(
          watcherService, QDBusConnection::sessionBus(),
          QDBusServiceWatcher::WatchForRegistration | QDBusServiceWatcher::WatchForUnregistration, this)) {
    connect(display_.get(), &X11Events::trayChanged, this, &StatusItemHosts::tell);
    connect(watcher_, &QDBusServiceWatcher::serviceRegistered, this, &StatusItemHosts::askForPanel);
    connect(watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this] { setHasPanel(false); });
    // The watcher may be there long before a panel is.
    for (const auto& news :
         {QStringLiteral("StatusNotifierHostRegistered"), QStringLiteral("StatusNotifierHostUnregistered")}) {
        QDBusConnection::sessionBus().connect(watcherService, watcherPath, watcherInterface, news, this,
                                              SLOT(askForPanel()));
    }
    askForPanel();
}

StatusItemHosts::~StatusItemHosts() = default;

bool StatusItemHosts::isThere() const {
    return hasPanel_ || display_->hasTray();
}

void StatusItemHosts::onChange(std::function<void()> changed) {
    changed_ = std::move(changed);
}

void StatusItemHosts::askForPanel() {
    auto question = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                                   QStringLiteral("org.freedesktop.DBus.Properties"),
                                                   QStringLiteral("Get"));
    question << watcherInterface << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        setHasPanel(!reply.isError() && reply.value().variant().toBool());
    });
}

void StatusItemHosts::setHasPanel(bool hasPanel) {
    if (std::exchange(hasPanel_, hasPanel) != hasPanel) {
        tell();
    }
}

void StatusItemHosts::tell() {
    if (changed_) {
        changed_();
    }
}

} // namespace brivandel
