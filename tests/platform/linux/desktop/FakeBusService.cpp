#include "platform/linux/desktop/FakeBusService.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <utility>

namespace brivandel {

namespace {

/// The event loop that QtDBus needs, for the whole program.
class Application final : public testing::Environment {
public:
    void SetUp() override {
        application_ = std::make_unique<QCoreApplication>(argumentCount_, arguments_.data());
    }
    void TearDown() override { application_.reset(); }

private:
    int argumentCount_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    std::unique_ptr<QCoreApplication> application_;
};

[[maybe_unused]] const auto* const application = testing::AddGlobalTestEnvironment(new Application);

} // namespace

FakeBusService::FakeBusService(QString name, const QString& path)
    : name_(std::move(name))
    , connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_)) {
    EXPECT_TRUE(connection_.registerVirtualObject(path, this));
    EXPECT_TRUE(connection_.registerService(name_));
}

FakeBusService::~FakeBusService() {
    connection_.unregisterService(name_);
    QDBusConnection::disconnectFromBus(name_);
}

bool FakeBusService::waitForCalls(qsizetype count) {
    return processEventsUntil([&] { return calls_.size() >= count; });
}

QString FakeBusService::introspect(const QString&) const {
    return {};
}

bool FakeBusService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    calls_.append(message);
    message.setDelayedReply(true);
    if (const auto answer = answers_.constFind(message.member()); answer != answers_.cend()) {
        connection.send(message.createReply(*answer));
    }
    return true;
}

bool processEventsUntil(const std::function<bool()>& condition) {
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(10'000);
    while (!condition() && deadline.isActive()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

} // namespace brivandel
