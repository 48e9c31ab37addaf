#include "app/SingleInstance.h"

#include <QDeadlineTimer>
#include <QLocalSocket>

#include <chrono>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

// Another program that starts or ends at the same moment holds the lock while its socket is not there.
constexpr auto startPatience = 3s;
constexpr auto lockPatience = 300ms;
constexpr auto answerPatience = 2s;
constexpr qint64 longestRequest = 64;

const QByteArray accepted = QByteArrayLiteral("ok\n");

int milliseconds(std::chrono::milliseconds duration) {
    return static_cast<int>(duration.count());
}

} // namespace

SingleInstance::SingleInstance(const QString& folder)
    : socketPath_(folder + QStringLiteral("/brivandel.socket"))
    , lock_(folder + QStringLiteral("/brivandel.lock")) {
    lock_.setStaleLockTime(0); // a lock is stale when its process is gone, however old it is
    connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::serve);
}

SingleInstance::Role SingleInstance::begin(LaunchRequest request) {
    const QDeadlineTimer deadline(startPatience);
    for (std::chrono::milliseconds patience{}; !deadline.hasExpired(); patience = lockPatience) {
        if (lock_.tryLock(milliseconds(patience))) {
            QLocalServer::removeServer(socketPath_); // what a program that was killed left behind
            server_.setSocketOptions(QLocalServer::UserAccessOption);
            if (!server_.listen(socketPath_)) {
                problem_ = QStringLiteral("other starts cannot reach this program: %1: %2")
                               .arg(socketPath_, server_.errorString());
            }
            return Role::First;
        }
        if (lock_.error() != QLockFile::LockFailedError) {
            problem_ = QStringLiteral("the lock file beside %1 cannot be written").arg(socketPath_);
            return Role::Mute;
        }
        const Answer answer = handOver(request);
        if (answer == Answer::Accepted) {
            return Role::HandedOn;
        }
        if (answer == Answer::None) {
            break; // it may act on the request yet, so it is not sent again
        }
    }
    problem_ = QStringLiteral("Brivandel seems to be running, but it does not answer at %1").arg(socketPath_);
    return Role::Mute;
}

SingleInstance::Answer SingleInstance::handOver(LaunchRequest request) {
    QLocalSocket socket;
    socket.connectToServer(socketPath_);
    if (!socket.waitForConnected(milliseconds(answerPatience))) {
        return Answer::NobodyThere;
    }
    socket.write(wordFor(request).toUtf8() + '\n');
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(milliseconds(answerPatience))) {
            return Answer::None;
        }
    }
    return socket.readLine() == accepted ? Answer::Accepted : Answer::None;
}

void SingleInstance::serve() {
    while (auto* socket = server_.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->canReadLine()) {
                if (socket->bytesAvailable() > longestRequest) {
                    socket->abort();
                }
                return;
            }
            const auto request =
                launchRequestFor(QString::fromUtf8(socket->readLine(longestRequest).trimmed()));
            if (!request) {
                socket->abort();
                return;
            }
            socket->write(accepted);
            socket->flush(); // the request may be the last one
            socket->disconnectFromServer();
            Q_EMIT requested(*request);
        });
    }
}

} // namespace brivandel
