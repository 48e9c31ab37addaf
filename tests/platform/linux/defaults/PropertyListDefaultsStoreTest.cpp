#include "platform/linux/defaults/PropertyListDefaultsStore.h"

#include "platform/DiagnosticLog.h"
#include "platform/WorkQueue.h"
#include "platform/linux/defaults/FileLock.h"
#include "platform/linux/defaults/PropertyList.h"
#include "support/StorageFaults.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>

namespace brivandel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString wakeWord = QStringLiteral("wakeWord");
const QString minutes = QStringLiteral("idleTimeoutMinutes");

class Lines final : public DiagnosticLog {
public:
    void write(const QString& message) override { lines.append(message); }
    QStringList lines;
};

class InlineWorkQueue final : public WorkQueue {
public:
    void run(std::function<void()> work) override {
        ++count;
        work();
    }
    int count = 0;
};

class PropertyListDefaultsStoreTest : public testing::Test {
protected:
    std::unique_ptr<PropertyListDefaultsStore> open() {
        return std::make_unique<PropertyListDefaultsStore>(
            path_, log_, &workQueue_, [this](const QString& message) { complaints_.append(message); });
    }

    QVariantMap stored() const {
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto list = PropertyList::parse(file.readAll());
        EXPECT_TRUE(std::holds_alternative<PropertyList>(list));
        return std::get<PropertyList>(list).objects();
    }

    void writeFile(const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(path_).absolutePath());
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QStringList files() const {
        return QFileInfo(path_).dir().entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath(QStringLiteral("config/brivandel/defaults.plist"));
    Lines log_;
    InlineWorkQueue workQueue_;
    QStringList complaints_;
};

TEST_F(PropertyListDefaultsStoreTest, NoFile_HoldsNothingAndComplainsOfNothing) {
    EXPECT_THAT(open()->objects(), IsEmpty());
    EXPECT_FALSE(QFile::exists(path_));
    EXPECT_THAT(complaints_, IsEmpty());
    EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(PropertyListDefaultsStoreTest, Set_IsInTheFileWhenItReturns) {
    const auto store = open();
    store->set(wakeWord, QStringLiteral("hey"));
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hey")}}));
    store->set(minutes, qlonglong{5});
    store->set(wakeWord, QStringLiteral("hi"));
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hi")}, {minutes, qlonglong{5}}}));
    EXPECT_EQ(open()->object(wakeWord), QVariant(QStringLiteral("hi")));
    EXPECT_EQ(workQueue_.count, 3);
}

TEST_F(PropertyListDefaultsStoreTest, Remove_LeavesTheKeyAbsent) {
    const auto store = open();
    store->set(wakeWord, QStringLiteral("hey"));
    store->remove(wakeWord);
    EXPECT_THAT(stored(), IsEmpty());
    EXPECT_FALSE(store->object(wakeWord).isValid());
}

TEST_F(PropertyListDefaultsStoreTest, File_IsTheOwnersAlone) {
    open()->set(wakeWord, QStringLiteral("hey"));
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(path_) & others);
}

TEST_F(PropertyListDefaultsStoreTest, TwoStores_LoseNoKey) {
    const auto first = open();
    const auto second = open();
    first->set(wakeWord, QStringLiteral("of the first"));
    second->set(minutes, qlonglong{7});
    first->set(QStringLiteral("audioDevice"), QStringLiteral("usb"));
    EXPECT_EQ(stored().keys(), QStringList({QStringLiteral("audioDevice"), minutes, wakeWord}));
}

TEST_F(PropertyListDefaultsStoreTest, LinkedFile_StaysALink) {
    const QString target = folder_.filePath(QStringLiteral("synchronised.plist"));
    PropertyList list;
    list.set(wakeWord, QStringLiteral("old"));
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(list.toBinary());
    file.close();
    QDir().mkpath(QFileInfo(path_).absolutePath());
    ASSERT_TRUE(QFile::link(target, path_));

    open()->set(wakeWord, QStringLiteral("new"));
    EXPECT_TRUE(QFileInfo(path_).isSymLink());
    EXPECT_EQ(open()->object(wakeWord), QVariant(QStringLiteral("new")));
}

TEST_F(PropertyListDefaultsStoreTest, LinkToAFileThatIsNotThere_StaysALinkAndIsFilled) {
    const QString target = folder_.filePath(QStringLiteral("not mounted.plist"));
    QDir().mkpath(QFileInfo(path_).absolutePath());
    ASSERT_TRUE(QFile::link(target, path_));
    const auto store = open();
    EXPECT_THAT(complaints_, IsEmpty());
    store->set(wakeWord, QStringLiteral("hey"));
    EXPECT_TRUE(QFileInfo(path_).isSymLink());
    EXPECT_TRUE(QFile::exists(target));
}

TEST_F(PropertyListDefaultsStoreTest, LockHeldByAStoppedProgram_DelaysNoLongerThanItsPatience) {
    const auto store = open();
    store->set(minutes, qlonglong{5});
    {
        const FileLock held(path_ + QStringLiteral(".lock"));
        store->set(wakeWord, QStringLiteral("hey"));
        EXPECT_EQ(store->object(wakeWord), QVariant(QStringLiteral("hey")));
        EXPECT_FALSE(stored().contains(wakeWord));
        EXPECT_TRUE(log_.lines.join(u' ').contains(QStringLiteral("another program holds it")));
    }
    store->set(minutes, qlonglong{6});
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hey")}, {minutes, qlonglong{6}}}));
}

TEST_F(PropertyListDefaultsStoreTest, UnreadableFile_IsKeptAsideAndSaidOnce) {
    writeFile("garbage");
    const auto store = open();
    EXPECT_THAT(store->objects(), IsEmpty());
    ASSERT_EQ(complaints_.size(), 1);
    EXPECT_EQ(log_.lines, complaints_);
    EXPECT_TRUE(complaints_[0].startsWith(
        QStringLiteral("Settings file %1 could not be read: it is no property list, or "
                       "a damaged one. It is kept as %1.unreadable-")
            .arg(path_)))
        << complaints_[0].toStdString();

    ASSERT_EQ(files().size(), 1);
    QFile aside(QFileInfo(path_).dir().filePath(files()[0]));
    ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
    EXPECT_EQ(aside.readAll(), QByteArray("garbage"));

    store->set(wakeWord, QStringLiteral("hey"));
    EXPECT_EQ(stored().size(), 1);
    EXPECT_EQ(complaints_.size(), 1);
}

TEST_F(PropertyListDefaultsStoreTest, FileDamagedWhileRunning_IsMadeAnewFromMemory) {
    const auto store = open();
    store->set(wakeWord, QStringLiteral("hey"));
    writeFile("garbage");
    store->set(minutes, qlonglong{5});
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hey")}, {minutes, qlonglong{5}}}));
    EXPECT_EQ(complaints_.size(), 1);
}

TEST_F(PropertyListDefaultsStoreTest, FileDeletedWhileRunning_IsMadeAnewFromMemory) {
    const auto store = open();
    store->set(wakeWord, QStringLiteral("hey"));
    ASSERT_TRUE(QFile::remove(path_));
    store->set(minutes, qlonglong{5});
    EXPECT_EQ(stored().size(), 2);
}

TEST_F(PropertyListDefaultsStoreTest, FailedWrite_IsLoggedAndMadeGoodByTheNext) {
    // A file where the folder should be: not even root can write there.
    ASSERT_TRUE(QDir(folder_.path()).mkpath(QStringLiteral("config")));
    QFile obstacle(folder_.filePath(QStringLiteral("config/brivandel")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));

    const auto store = open();
    store->set(wakeWord, QStringLiteral("hey"));
    EXPECT_EQ(log_.lines,
              QStringList(QStringLiteral(
                              "Settings file %1 could not be written: its folder cannot be written to (Not a "
                              "directory)")
                              .arg(path_)));
    EXPECT_EQ(store->object(wakeWord), QVariant(QStringLiteral("hey")));

    ASSERT_TRUE(obstacle.remove());
    store->set(minutes, qlonglong{5});
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hey")}, {minutes, qlonglong{5}}}));
}

TEST_F(PropertyListDefaultsStoreTest, DiskFull_KeepsTheOldFileAndIsMadeGoodByTheNextChange) {
    const auto store = open();
    store->set(wakeWord, QStringLiteral("hey"));
    {
        const FullDisk disk(16);
        store->set(minutes, qlonglong{5});
        store->set(minutes, qlonglong{6});
    }
    const auto failed = QStringLiteral("Settings file %1 could not be written: ").arg(path_);
    ASSERT_EQ(log_.lines.size(), 2);
    EXPECT_TRUE(log_.lines[0].startsWith(failed)) << qPrintable(log_.lines[0]);
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hey")}}));
    EXPECT_EQ(files(),
              QStringList({QStringLiteral("defaults.plist"), QStringLiteral("defaults.plist.lock")}));

    store->set(wakeWord, QStringLiteral("hi"));
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hi")}, {minutes, qlonglong{6}}}));
    EXPECT_THAT(complaints_, IsEmpty());
}

TEST_F(PropertyListDefaultsStoreTest, ReadOnlyFolder_KeepsTheOldFileAndIsMadeGoodByTheNextChange) {
    const auto store = open();
    store->set(wakeWord, QStringLiteral("hey"));
    QFile::remove(path_ + QStringLiteral(".lock"));
    {
        const ReadOnlyFolder folder(QFileInfo(path_).absolutePath().toLocal8Bit(), path_.toLocal8Bit());
        ASSERT_TRUE(folder.isReadOnly());
        store->set(minutes, qlonglong{5});
        EXPECT_EQ(store->object(minutes), QVariant(qlonglong{5}));
    }
    EXPECT_EQ(
        log_.lines,
        QStringList(QStringLiteral("Settings file %1 could not be written: its folder cannot be written to "
                                   "(Permission denied)")
                        .arg(path_)));
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hey")}}));

    store->set(wakeWord, QStringLiteral("hi"));
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hi")}, {minutes, qlonglong{5}}}));
    EXPECT_THAT(complaints_, IsEmpty());
}

// Starts the writer and returns once it has written for the first time.
std::unique_ptr<QProcess> startWriter(const QString& path, const QString& key, const QString& count) {
    auto writer = std::make_unique<QProcess>();
    writer->start(QStringLiteral(DEFAULTS_WRITER), {path, key, count});
    EXPECT_TRUE(writer->waitForReadyRead());
    return writer;
}

TEST_F(PropertyListDefaultsStoreTest, ProcessKilledWhileWriting_LeavesAWholeFile) {
    for (int round = 0; round < 30; ++round) {
        const auto writer = startWriter(path_, minutes, QStringLiteral("1000000"));
        // The writer goes on while this reads: each look sees one whole file or another.
        for (int look = 0; look < round; ++look) {
            EXPECT_TRUE(stored().contains(minutes));
        }
        writer->kill();
        writer->waitForFinished();
        EXPECT_TRUE(stored().contains(minutes));
    }
    EXPECT_THAT(open()->objects(), testing::SizeIs(1));
    EXPECT_THAT(complaints_, IsEmpty());
}

// The writer of the number 2 over the number 1, killed as it enters or leaves its nth call of the system.
// Whether it came so far.
bool killedAtStop(const QString& path, int stop) {
    std::array<QByteArray, 5> texts = {DEFAULTS_WRITER, path.toLocal8Bit(), minutes.toLocal8Bit(), "2",
                                       "--traced"};
    std::array<char*, 6> arguments{};
    std::ranges::transform(texts, arguments.begin(), [](QByteArray& text) { return text.data(); });
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t writer = 0;
    const int failure = posix_spawn(&writer, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        return false;
    }
    int status = 0;
    waitpid(writer, &status, 0); // it stopped itself
    bool isThere = WIFSTOPPED(status);
    for (int passed = 0; passed < stop && isThere; ++passed) {
        ptrace(PTRACE_SYSCALL, writer, nullptr, nullptr);
        waitpid(writer, &status, 0);
        isThere = WIFSTOPPED(status);
    }
    if (isThere) {
        kill(writer, SIGKILL);
        waitpid(writer, &status, 0);
    }
    return isThere;
}

TEST_F(PropertyListDefaultsStoreTest, ProcessKilledAtEachStepOfAWrite_LeavesAWholeFile) {
    int kills = 0;
    qlonglong last = 0;
    while (kills < 1000 && killedAtStop(path_, kills)) {
        last = stored().value(minutes).toLongLong();
        EXPECT_TRUE(last == 1 || last == 2) << "killed at stop " << kills;
        ++kills;
    }
    // It has the new value in the end, and was killed often enough to have met every step before.
    EXPECT_EQ(last, 2);
    EXPECT_GT(kills, 40);
    RecordProperty("kills", kills);
    open()->set(wakeWord, QStringLiteral("hey"));
    EXPECT_EQ(stored(), (QVariantMap{{wakeWord, QStringLiteral("hey")}, {minutes, qlonglong{2}}}));
    EXPECT_THAT(complaints_, IsEmpty());
}

TEST_F(PropertyListDefaultsStoreTest, TwoProcessesAtOnce_LoseNoKey) {
    const auto first = startWriter(path_, QStringLiteral("first"), QStringLiteral("300"));
    const auto second = startWriter(path_, QStringLiteral("second"), QStringLiteral("300"));
    EXPECT_TRUE(first->waitForFinished());
    EXPECT_TRUE(second->waitForFinished());
    EXPECT_EQ(stored(), (QVariantMap{{QStringLiteral("first"), qlonglong{300}},
                                     {QStringLiteral("second"), qlonglong{300}}}));
}

} // namespace
} // namespace brivandel
