#include "platform/linux/desktop/PortalAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace brivandel {

namespace {

const QString& service() {
    static const auto name = QStringLiteral("org.freedesktop.portal.Desktop");
    return name;
}

const QString& path() {
    static const auto name = QStringLiteral("/org/freedesktop/portal/desktop");
    return name;
}

const QString& interface() {
    static const auto name = QStringLiteral("org.freedesktop.portal.Settings");
    return name;
}

const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto colorScheme = QStringLiteral("color-scheme");

} // namespace

PortalAppearance::PortalAppearance() {
    QDBusConnection::sessionBus().connect(service(), path(), interface(), QStringLiteral("SettingChanged"),
                                          this, SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void PortalAppearance::onChange(std::function<void()> changed) {
    changed_ = std::move(changed);
}

void PortalAppearance::ask() {
    auto call = QDBusMessage::createMethodCall(service(), path(), interface(), QStringLiteral("Read"));
    call << appearanceGroup << colorScheme;
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        if (!reply.isError()) {
            take(reply.value().variant());
        }
    });
}

void PortalAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == appearanceGroup && key == colorScheme) {
        take(value.variant());
    }
}

void PortalAppearance::take(QVariant value) {
    // Read() wraps its answer twice; the signal once.
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    constexpr uint dark = 1;
    constexpr uint light = 2;
    const uint number = value.toUInt();
    const Preference wanted = number == dark    ? Preference::Dark
                              : number == light ? Preference::Light
                                                : Preference::None;
    if (std::exchange(preference_, wanted) != wanted && changed_) {
        changed_();
    }
}

} // namespace brivandel
