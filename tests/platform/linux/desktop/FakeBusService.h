#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QHash>
#include <QList>
#include <QString>

#include <functional>

namespace brivandel {

/// A service on the session bus, with a connection of its own, that answers as it is told.
class FakeBusService final : public QDBusVirtualObject {
public:
    FakeBusService(QString name, const QString& path);
    ~FakeBusService() override;

    /// What it answers to that method; it leaves every other one without an answer.
    void setAnswer(const QString& method, const QVariantList& answer) { answers_.insert(method, answer); }
    /// Processes events until so many calls have come; whether they came in time.
    [[nodiscard]] bool waitForCalls(qsizetype count);
    [[nodiscard]] const QList<QDBusMessage>& calls() const { return calls_; }

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QString name_;
    QDBusConnection connection_;
    QHash<QString, QVariantList> answers_;
    QList<QDBusMessage> calls_;
};

/// Processes events until the condition holds; false when it does not in time.
[[nodiscard]] bool processEventsUntil(const std::function<bool()>& condition);

} // namespace brivandel
