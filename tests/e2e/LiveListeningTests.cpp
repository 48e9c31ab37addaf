#include "e2e/ChildProcess.h"
#include "e2e/FileChange.h"
#include "e2e/Speech.h"
#include "platform/linux/audio/ServerControl.h"
#include "platform/linux/defaults/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 30s; // for any one thing to happen, on a machine that has other things to do

// The aim for the time in which listening works again; a busy machine gets more before a test fails.
constexpr auto recoveryAim = 3s;
constexpr auto recoveryLimit = 10s;

constexpr int spaceKeyCode = 49;
constexpr int rKeyCode = 15;

} // namespace

/// The program listens for a user of the test's own, beside a window that stands for the workstation.
class LiveListeningTest : public testing::Test {
protected:
    LiveListeningTest() {
        qputenv("HOME", folder_.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", folder_.filePath(QStringLiteral("config")).toLocal8Bit());
        qputenv("XDG_STATE_HOME", folder_.filePath(QStringLiteral("state")).toLocal8Bit());
    }

    void SetUp() override {
        window_.emplace(QStringLiteral("Logic Pro"), QStringList());
        ASSERT_TRUE(window_->next("ready", patience)) << "the window did not open";
    }

    void chooseMicrophone(const QString& uid) const {
        PropertyList settings;
        settings.set(QStringLiteral("audioDevice"), uid);
        const QString path = folder_.filePath(QStringLiteral("config/brivandel/defaults.plist"));
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(settings.toBinary());
    }

    void listen() {
        program_.emplace(QStringLiteral("brivandel"),
                         QStringList{QStringLiteral("listen"), QStringLiteral("--json")});
        ASSERT_TRUE(program_->next("began", patience));
    }

    /// Says it until a command comes: sound is lost while the input is being opened.
    [[nodiscard]] std::optional<ChildProcess::Event> commandAfter(const QString& sound, const QString& sink) {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        std::optional<ChildProcess::Event> command;
        while (!command && std::chrono::steady_clock::now() < deadline) {
            play(sound, sink);
            command = program_->next("command", 2s);
        }
        return command;
    }

    /// Something heard within three seconds that is not the last word of the session that has just ended.
    [[nodiscard]] std::optional<ChildProcess::Event> somethingNew() {
        return program_->next(
            [](const ChildProcess::Event& event) {
                return event.value("event", "") == "heard" && !event.value("final", false);
            },
            3s);
    }

    [[nodiscard]] int nextKeyCode() {
        const auto key = window_->next("key", patience);
        return key ? key->value("keyCode", -1) : -1;
    }

    [[nodiscard]] QString logPath() const {
        return folder_.filePath(QStringLiteral("Library/Logs/Brivandel/Brivandel.log"));
    }

    /// How long it takes from now until the program's log has another line with this text in it; none when it
    /// does not come in time. The line's writing wakes this up.
    [[nodiscard]] std::optional<std::chrono::milliseconds> timeUntilLogged(const QByteArray& text,
                                                                           qsizetype linesBefore) const {
        const auto start = std::chrono::steady_clock::now();
        const FileChange change(logPath());
        while (logged(text) <= linesBefore) {
            if (!change.wait(start + patience)) {
                return std::nullopt;
            }
        }
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                     start);
    }

    [[nodiscard]] qsizetype logged(const QByteArray& text) const {
        QFile log(logPath());
        return log.open(QIODevice::ReadOnly) ? log.readAll().count(text) : 0;
    }

    /// What is written when a session begins on an input that is there.
    static constexpr const char* sessionLine = "Audio input set to device UID: usb";

    QTemporaryDir folder_;
    std::optional<ChildProcess> window_;
    std::optional<ChildProcess> program_;
};

TEST_F(LiveListeningTest, SpokenCommand_ArrivesAsAKeyInAnotherProcess) {
    listen();
    ASSERT_TRUE(
        commandAfter(speak(QStringLiteral("hey logic play"), folder_.path()), QStringLiteral("feed")));
    EXPECT_EQ(nextKeyCode(), spaceKeyCode);
    EXPECT_EQ(program_->interrupt(), 0);
}

TEST_F(LiveListeningTest, SixChannels_OnlyTheFirstIsHeard) {
    chooseMicrophone(QStringLiteral("vmic6"));
    listen();
    const QString others = QStringLiteral("hey logic play");
    const QString sound = speakInChannels(
        {QStringLiteral("hey logic record"), others, others, others, others, others}, folder_.path());
    const auto command = commandAfter(sound, QStringLiteral("feed6"));
    ASSERT_TRUE(command);
    EXPECT_EQ(command->value("phrase", ""), "hey logic record");
    EXPECT_EQ(nextKeyCode(), rKeyCode);
    const auto second = program_->next("command", 3s);
    EXPECT_FALSE(second) << second->dump();
    EXPECT_EQ(program_->interrupt(), 0);
}

TEST_F(LiveListeningTest, ChosenDeviceUnpluggedAndBack_ListensAgainAndNeverToAnother) {
    const QString uid = QStringLiteral("usb");
    const QString master = QStringLiteral("feed2.monitor");
    const QString record = speak(QStringLiteral("hey logic record"), folder_.path());
    const QString playback = speak(QStringLiteral("hey logic play"), folder_.path());
    QString module = plugInMicrophone(uid, master);
    chooseMicrophone(uid);
    listen();
    ASSERT_TRUE(commandAfter(record, QStringLiteral("feed2")));
    EXPECT_EQ(nextKeyCode(), rKeyCode);

    unplug(module);
    play(playback, QStringLiteral("feed"));
    const auto overheard = somethingNew();
    EXPECT_FALSE(overheard) << overheard->dump();

    const auto sessions = logged(sessionLine);
    module = plugInMicrophone(uid, master);
    const auto time = timeUntilLogged(sessionLine, sessions);
    ASSERT_TRUE(time) << "it does not listen again";
    std::cout << "listens again " << time->count()
              << " ms after the device was back (aim: " << std::chrono::milliseconds(recoveryAim).count()
              << " ms)\n";
    EXPECT_LT(*time, recoveryLimit);
    ASSERT_TRUE(commandAfter(playback, QStringLiteral("feed2")));
    EXPECT_EQ(nextKeyCode(), spaceKeyCode);
    EXPECT_EQ(program_->interrupt(), 0);
    unplug(module);
}

TEST_F(LiveListeningTest, ServerKilledAndBack_ListensAgain) {
    const QByteArray line = "Input format";
    const QString record = speak(QStringLiteral("hey logic record"), folder_.path());
    const QString playback = speak(QStringLiteral("hey logic play"), folder_.path());
    listen();
    ASSERT_TRUE(commandAfter(record, QStringLiteral("feed")));
    EXPECT_EQ(nextKeyCode(), rKeyCode);

    stopServer();
    // The restart after the command has been made, and no sound comes.
    const auto overheard = somethingNew();
    EXPECT_FALSE(overheard) << overheard->dump();
    const auto sessions = logged(line);
    const auto start = std::chrono::steady_clock::now();
    startServer();
    const auto whileStarting = std::chrono::steady_clock::now() - start;
    const auto time = timeUntilLogged(line, sessions);
    ASSERT_TRUE(time) << "it does not listen again";
    std::cout << "listens again " << time->count() << " ms after the server was ready, which took "
              << std::chrono::duration_cast<std::chrono::milliseconds>(whileStarting).count()
              << " ms (aim: " << std::chrono::milliseconds(recoveryAim).count() << " ms)\n";
    EXPECT_LT(*time, recoveryLimit);
    ASSERT_TRUE(commandAfter(playback, QStringLiteral("feed")));
    EXPECT_EQ(nextKeyCode(), spaceKeyCode);
    EXPECT_EQ(program_->interrupt(), 0);
}

} // namespace brivandel
