#include "app/SingleInstance.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <memory>

namespace brivandel {
namespace {

class SingleInstanceTest : public testing::Test {
protected:
    // A further start, as another program would make it: it waits for the answer, so it needs a thread.
    SingleInstance::Role startAnother(LaunchRequest request) {
        auto role = SingleInstance::Role::Mute;
        const std::unique_ptr<QThread> thread(
            QThread::create([&] { role = SingleInstance(folder.path()).begin(request); }));
        QEventLoop untilItEnded;
        QObject::connect(thread.get(), &QThread::finished, &untilItEnded, &QEventLoop::quit);
        thread->start();
        untilItEnded.exec();
        thread->wait();
        return role;
    }

    QTemporaryDir folder;
};

TEST_F(SingleInstanceTest, FirstStart_IsTheOne) {
    SingleInstance first(folder.path());
    EXPECT_EQ(first.begin(LaunchRequest::None), SingleInstance::Role::First);
    EXPECT_EQ(first.problem(), QString());
}

TEST_F(SingleInstanceTest, FurtherStarts_HandTheirRequestsOver) {
    SingleInstance first(folder.path());
    ASSERT_EQ(first.begin(LaunchRequest::None), SingleInstance::Role::First);
    std::vector<LaunchRequest> requests;
    QObject::connect(&first, &SingleInstance::requested, &first,
                     [&](LaunchRequest request) { requests.push_back(request); });
    EXPECT_EQ(startAnother(LaunchRequest::Toggle), SingleInstance::Role::HandedOn);
    EXPECT_EQ(startAnother(LaunchRequest::Settings), SingleInstance::Role::HandedOn);
    EXPECT_EQ(requests, (std::vector{LaunchRequest::Toggle, LaunchRequest::Settings}));
}

TEST_F(SingleInstanceTest, AfterTheFirstHasEnded_TheNextIsTheOne) {
    {
        SingleInstance first(folder.path());
        ASSERT_EQ(first.begin(LaunchRequest::None), SingleInstance::Role::First);
    }
    SingleInstance second(folder.path());
    EXPECT_EQ(second.begin(LaunchRequest::None), SingleInstance::Role::First);
}

TEST_F(SingleInstanceTest, SocketOfAKilledProgram_IsTakenOver) {
    // What a kill leaves behind: a name that nobody listens at.
    QFile left(folder.filePath(QStringLiteral("brivandel.socket")));
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.close();
    SingleInstance next(folder.path());
    EXPECT_EQ(next.begin(LaunchRequest::None), SingleInstance::Role::First);
    EXPECT_EQ(next.problem(), QString());
    EXPECT_EQ(startAnother(LaunchRequest::Popover), SingleInstance::Role::HandedOn);
}

TEST_F(SingleInstanceTest, WordThatIsNoRequest_IsRefusedAndHarmsNothing) {
    SingleInstance first(folder.path());
    ASSERT_EQ(first.begin(LaunchRequest::None), SingleInstance::Role::First);
    const QSignalSpy requests(&first, &SingleInstance::requested);
    for (const QByteArray& word : {QByteArray("dance\n"), QByteArray(1000, 'x')}) {
        QLocalSocket socket;
        QEventLoop untilItIsClosed;
        QObject::connect(&socket, &QLocalSocket::disconnected, &untilItIsClosed, &QEventLoop::quit);
        socket.connectToServer(folder.filePath(QStringLiteral("brivandel.socket")));
        ASSERT_TRUE(socket.waitForConnected());
        socket.write(word);
        untilItIsClosed.exec();
        EXPECT_EQ(socket.readAll(), QByteArray());
    }
    EXPECT_EQ(requests.size(), 0);
    EXPECT_EQ(startAnother(LaunchRequest::Toggle), SingleInstance::Role::HandedOn);
}

TEST_F(SingleInstanceTest, FolderThatIsNotThere_IsSaidToBeTheProblem) {
    SingleInstance lost(folder.filePath(QStringLiteral("nowhere")));
    EXPECT_EQ(lost.begin(LaunchRequest::None), SingleInstance::Role::Mute);
    EXPECT_TRUE(lost.problem().contains(QStringLiteral("nowhere"))) << lost.problem().toStdString();
}

} // namespace
} // namespace brivandel
