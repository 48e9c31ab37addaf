#include "platform/qt/LogFile.h"

#include "support/StorageFaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>

namespace brivandel {
namespace {

class LogFileTest : public testing::Test {
protected:
    QByteArray contents() const {
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath(QStringLiteral("Brivandel.log"));
    // 2026-11-15T23:22:41.9Z
    MainQueue::WallTime now_{std::chrono::milliseconds{1794784961900}};
    LogFile log_{folder_.path(), [this] { return now_; }};
};

TEST_F(LogFileTest, FirstMessage_MakesTheFile) {
    log_.write(QStringLiteral("isListening changed: false → true"));
    EXPECT_EQ(contents(), QByteArray("[2026-11-15T23:22:41Z] isListening changed: false → true\n"));
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList(QStringLiteral("Brivandel.log")));
}

TEST_F(LogFileTest, File_IsReadableByItsOwnerAlone) {
    log_.write(QStringLiteral("Heard: a secret"));
    constexpr auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                            QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    EXPECT_FALSE(QFile::permissions(path_) & others);
    EXPECT_TRUE(QFile::permissions(path_).testFlag(QFileDevice::ReadOwner));
}

TEST_F(LogFileTest, LaterMessages_AreAppended) {
    log_.write(QStringLiteral("one"));
    now_ += std::chrono::hours{24};
    log_.write(QStringLiteral("two"));
    EXPECT_EQ(contents(), QByteArray("[2026-11-15T23:22:41Z] one\n[2026-11-16T23:22:41Z] two\n"));
}

TEST_F(LogFileTest, WhatIsInTheFile_IsLeftAsItIs) {
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no line end and \xff");
    file.close();
    log_.write(QStringLiteral("more"));
    EXPECT_EQ(contents(), QByteArray("no line end and \xff[2026-11-15T23:22:41Z] more\n"));
}

TEST_F(LogFileTest, MessageOfSeveralLines_IsStampedOnce) {
    log_.write(QStringLiteral("Call stack: a\nb\nc"));
    EXPECT_EQ(contents(), QByteArray("[2026-11-15T23:22:41Z] Call stack: a\nb\nc\n"));
}

TEST_F(LogFileTest, EmptyMessage_IsALineToo) {
    log_.write(QString());
    EXPECT_EQ(contents(), QByteArray("[2026-11-15T23:22:41Z] \n"));
}

TEST_F(LogFileTest, NowhereToWrite_FailsSilently) {
    LogFile nowhere(folder_.filePath(QStringLiteral("missing/folder")), [this] { return now_; });
    nowhere.write(QStringLiteral("lost"));
    EXPECT_FALSE(QFile::exists(folder_.filePath(QStringLiteral("missing"))));
}

TEST_F(LogFileTest, FolderInPlaceOfTheFile_FailsSilentlyAndStays) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("Brivandel.log")));
    log_.write(QStringLiteral("lost"));
    EXPECT_TRUE(QFileInfo(path_).isDir());
}

TEST_F(LogFileTest, DiskFull_LosesOnlyWhatIsSaidMeanwhile) {
    log_.write(QStringLiteral("before"));
    {
        const FullDisk disk(static_cast<rlim_t>(contents().size()));
        log_.write(QStringLiteral("lost"));
        log_.write(QStringLiteral("lost, too"));
    }
    log_.write(QStringLiteral("after"));
    EXPECT_EQ(contents(), QByteArray("[2026-11-15T23:22:41Z] before\n[2026-11-15T23:22:41Z] after\n"));
}

TEST_F(LogFileTest, ReadOnlyFolder_LosesOnlyWhatIsSaidMeanwhile) {
    {
        const ReadOnlyFolder folder(folder_.path().toLocal8Bit(), path_.toLocal8Bit());
        ASSERT_TRUE(folder.isReadOnly());
        log_.write(QStringLiteral("lost"));
        EXPECT_FALSE(QFile::exists(path_));
    }
    log_.write(QStringLiteral("after"));
    EXPECT_EQ(contents(), QByteArray("[2026-11-15T23:22:41Z] after\n"));
}

TEST_F(LogFileTest, FileInPlaceOfTheFolder_FailsSilentlyAndStays) {
    const QString inTheWay = folder_.filePath(QStringLiteral("in the way"));
    QFile file(inTheWay);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    LogFile log(inTheWay, [this] { return now_; });
    log.write(QStringLiteral("lost"));
    log.write(QStringLiteral("lost, too"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("mine"));
}

// In a process of its own, since the directory is found once a process.
TEST(LogDirectoryDeathTest, FileAtItsPath_IsNoErrorAndStays) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto useIt = [] {
        const QTemporaryDir home;
        qputenv("HOME", home.path().toLocal8Bit());
        const QString path = home.path() + QStringLiteral("/Library/Logs/Brivandel");
        QDir().mkpath(home.path() + QStringLiteral("/Library/Logs"));
        QFile file(path);
        const bool isThere = file.open(QIODevice::WriteOnly);
        file.close();
        LogFile(LogFile::logDirectory(), [] { return MainQueue::WallTime(); }).write(QStringLiteral("lost"));
        return isThere && LogFile::logDirectory() == path && QFileInfo(path).isFile() &&
               QFileInfo(path).size() == 0;
    };
    EXPECT_EXIT(std::_Exit(useIt() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(LogDirectory, FirstUse_MakesItInTheHomeFolder) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    EXPECT_EQ(LogFile::logDirectory(), home.path() + QStringLiteral("/Library/Logs/Brivandel"));
    EXPECT_TRUE(QFileInfo(LogFile::logDirectory()).isDir());

    // Computed once: a change of the environment later moves nothing.
    const QString first = LogFile::logDirectory();
    qputenv("HOME", "/nonexistent");
    EXPECT_EQ(LogFile::logDirectory(), first);
}

} // namespace
} // namespace brivandel
