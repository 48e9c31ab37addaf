#include "platform/linux/desktop/DesktopInquiry.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>

namespace brivandel {

namespace {

/// The answer's arguments; none when it is an error or does not come in time.
std::optional<QVariantList> call(const QDBusMessage& message, std::chrono::milliseconds patience) {
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(message, QDBus::Block, static_cast<int>(patience.count()));
    return answer.type() == QDBusMessage::ReplyMessage ? std::optional(answer.arguments()) : std::nullopt;
}

std::optional<QString> notificationService(std::chrono::milliseconds patience) {
    const auto answer = call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                                            QStringLiteral("/org/freedesktop/Notifications"),
                                                            QStringLiteral("org.freedesktop.Notifications"),
                                                            QStringLiteral("GetServerInformation")),
                             patience);
    // Name, vendor, version, version of the protocol.
    if (!answer || answer->size() < 3) {
        return std::nullopt;
    }
    return QStringLiteral("%1 %2").arg(answer->at(0).toString(), answer->at(2).toString());
}

bool hasStatusItemHost(std::chrono::milliseconds patience) {
    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QStringLiteral("org.kde.StatusNotifierWatcher")
             << QStringLiteral("IsStatusNotifierHostRegistered");
    const auto answer = call(question, patience);
    return answer && !answer->isEmpty() && answer->front().value<QDBusVariant>().variant().toBool();
}

} // namespace

DesktopInquiry inquireDesktop(std::chrono::milliseconds patience) {
    DesktopInquiry found;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        found.busProblem = bus.lastError().message();
        return found;
    }
    found.notificationService = notificationService(patience);
    found.hasStatusItemHost = hasStatusItemHost(patience);
    return found;
}

} // namespace brivandel
