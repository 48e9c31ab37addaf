#include "e2e/ChildProcess.h"
#include "e2e/Speech.h"
#include "platform/linux/audio/ServerControl.h"
#include "platform/linux/defaults/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 30s; // for any one thing to happen, on a machine that has other things to do

constexpr int spaceKeyCode = 49;
constexpr int rKeyCode = 15;

} // namespace

/// The program listens for a user of the test's own, beside a window that stands for the workstation.
class LiveListeningTest : public testing::Test {
protected:
    LiveListeningTest() {
        qputenv("HOME", folder_.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", folder_.filePath(QStringLiteral("config")).toLocal8Bit());
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

    [[nodiscard]] int nextKeyCode() {
        const auto key = window_->next("key", patience);
        return key ? key->value("keyCode", -1) : -1;
    }

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

} // namespace brivandel
