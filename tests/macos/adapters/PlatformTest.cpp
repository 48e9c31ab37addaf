#include "AdapterTest.h"
#include "platform/Autostart.h"
#include "platform/PlatformFactory.h"
#include "platform/Targets.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <future>

namespace brivandel {

namespace {

// What the whole program makes of the adapters, in a home of its own.
class PlatformTest : public AdapterTest {
protected:
    PlatformTest() {
        // The folder of the log is looked for once in the process.
        static const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        world().libraryFolder = library_.path();
    }

    [[nodiscard]] QString agentPath() const {
        return library_.filePath(QStringLiteral("LaunchAgents/org.brivandel.Brivandel.plist"));
    }

private:
    QTemporaryDir library_;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    int argumentCount_ = 1;
    QCoreApplication application_{argumentCount_, arguments_.data()};
};

TEST_F(PlatformTest, Platform_LacksNoService) {
    const auto platform = makePlatform({});
    EXPECT_TRUE(platform->mainQueue);
    EXPECT_TRUE(platform->log);
    EXPECT_TRUE(platform->keyboardLayout);
    EXPECT_TRUE(platform->permissions);
    EXPECT_TRUE(platform->notifier);
    EXPECT_TRUE(platform->beeper);
    EXPECT_TRUE(platform->scriptHost);
    EXPECT_TRUE(platform->workQueue);
    EXPECT_TRUE(platform->defaults);
    EXPECT_TRUE(platform->audioDevices);
    EXPECT_TRUE(platform->audioEngine);
    EXPECT_TRUE(platform->speechRecognition);
    ASSERT_TRUE(platform->pronunciations);
    EXPECT_TRUE(platform->pronunciations->expect({QStringLiteral("quantize")}).isEmpty());
}

TEST_F(PlatformTest, InputThatGoes_EndsTheSessionOfTheWholeProgram) {
    const auto platform = makePlatform({});
    const auto recognizer = platform->speechRecognition->makeRecognizer(QStringLiteral("en-US"));
    const auto request = platform->speechRecognition->makeRequest();
    QStringList errors;
    const auto task = recognizer->startTask(
        request, [&](const auto& /*result*/, const auto& error) { errors += error.value_or(QString()); });
    platform->audioEngine->installTap(1024, platform->audioEngine->inputFormat(), [](const AudioBuffer&) {});
    ASSERT_FALSE(platform->audioEngine->start());
    standin::changeConfiguration(standin::Engine::Stops);
    EXPECT_TRUE(errors.isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(errors, QStringList(QStringLiteral("The input was unplugged, or has changed.")));
}

TEST_F(PlatformTest, Script_RunsOnTheWorkQueue) {
    const auto platform = makePlatform({});
    std::promise<std::optional<ScriptErrorDictionary>> outcome;
    platform->workQueue->run([&] { outcome.set_value(platform->scriptHost->run(QStringLiteral("beep"))); });
    EXPECT_FALSE(outcome.get_future().get());
    EXPECT_TRUE(calls().contains(QStringLiteral("script beep")));
}

TEST_F(PlatformTest, Failure_IsNotedInTheUsersLibrary) {
    EXPECT_EQ(lastFailurePath(),
              world().libraryFolder + QStringLiteral("/Application Support/Brivandel/last-failure.json"));
}

TEST_F(PlatformTest, SoundFiles_AreRecognisedBySpeechToo) {
    const auto recognition = makeFileSpeechRecognition();
    EXPECT_TRUE(recognition->makeRecognizer(QStringLiteral("en-US")));
    EXPECT_TRUE(recognition->makeRequest());
}

TEST_F(PlatformTest, SpeechThatCannotBeRecognised_HasAReason) {
    EXPECT_FALSE(speechRecognitionProblem());
    world().speechStatus = 0;
    EXPECT_FALSE(speechRecognitionProblem()) << "the user will be asked";
    for (const int refused : {1, 2}) {
        world().speechStatus = refused;
        EXPECT_EQ(speechRecognitionProblem(),
                  QStringLiteral("speech recognition is not allowed; see 'brivandel doctor'"));
    }
    world().speechStatus = 3;
    world().isRecognizerAvailable = false;
    EXPECT_EQ(speechRecognitionProblem(),
              QStringLiteral("the system's recogniser is not available at present"));
}

TEST_F(PlatformTest, Targets_AreTheWorkstationItself) {
    for (const bool isRunning : {false, true}) {
        world().runningPrograms =
            isRunning ? QStringList(QStringLiteral("Logic Pro")) : QStringList(QStringLiteral("Logic"));
        const TargetList list = listTargets(QStringLiteral("Ardour"));
        ASSERT_EQ(list.targets.size(), 1U);
        EXPECT_EQ(list.targets[0].name, QStringLiteral("Logic Pro"));
        EXPECT_EQ(list.targets[0].isRunning, isRunning);
        EXPECT_TRUE(list.targets[0].isChosen);
        EXPECT_TRUE(list.problems.isEmpty());
        EXPECT_EQ(makePlatform({QStringLiteral("Ardour")})->target->inWords(),
                  isRunning ? QStringLiteral("Commands go to Logic Pro.")
                            : QStringLiteral("Commands go to Logic Pro, which is not running."));
    }
}

TEST_F(PlatformTest, Autostart_IsAnAgentOfTheUsers) {
    EXPECT_FALSE(autostart().isOn);
    EXPECT_EQ(autostart().entryPath, agentPath());
    EXPECT_FALSE(setAutostart(true, QStringLiteral("/Applications/A & B.app/Contents/MacOS/Brivandel")));
    EXPECT_TRUE(autostart().isOn);
    QFile agent(agentPath());
    ASSERT_TRUE(agent.open(QIODevice::ReadOnly));
    const QByteArray content = agent.readAll();
    EXPECT_TRUE(content.contains("<string>/Applications/A &amp; B.app/Contents/MacOS/Brivandel</string>"));
    EXPECT_TRUE(content.contains("<key>RunAtLoad</key>\n    <true/>"));
    EXPECT_FALSE(setAutostart(false, {}));
    EXPECT_FALSE(autostart().isOn);
}

TEST_F(PlatformTest, AutostartOfAProgramInNoKnownPlace_IsRefused) {
    EXPECT_EQ(setAutostart(true, QStringLiteral("Brivandel")),
              agentPath() + QStringLiteral(": the place of the program is not known"));
    EXPECT_FALSE(autostart().isOn);
}

} // namespace

} // namespace brivandel
