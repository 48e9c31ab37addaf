#include "platform/linux/desktop/DBusNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace brivandel {

void DBusNotifier::deliver(const Notification& notification) {
    constexpr quint32 replacesNone = 0;
    constexpr qint32 expiresAsTheServiceLikes = -1;
    const QVariantMap hints{
        // The name that the freedesktop sound names give a message that arrives.
        {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
        {QStringLiteral("desktop-entry"), QStringLiteral("brivandel")},
    };

    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    // The summary is plain text; the body is markup.
    message << QStringLiteral("Brivandel") << replacesNone << QStringLiteral("brivandel")
            << notification.title << notification.body.toHtmlEscaped() << QStringList() << hints
            << expiresAsTheServiceLikes;
    QDBusConnection::sessionBus().send(message);
}

} // namespace brivandel
