#include "platform/macos/CaptureEnd.h"

#include "AdapterTest.h"
#include "platform/macos/MacServices.h"
#include "platform/scripted/VirtualMainQueue.h"

namespace brivandel {

namespace {

using standin::Engine;
using standin::Inputs;

class CaptureEndTest : public AdapterTest {
protected:
    CaptureEndTest() {
        captureEnd->listen([this](const QString& reason) { told += reason; });
    }

    void installTap() {
        engine->installTap(1024, engine->inputFormat(),
                           [this](const AudioBuffer& buffer) { heardRatesHz += buffer.sampleRateHz; });
    }

    VirtualMainQueue mainQueue;
    std::shared_ptr<CaptureEnd> captureEnd = std::make_shared<CaptureEnd>();
    std::unique_ptr<AudioEngine> engine = makeMacAudioEngine(mainQueue, captureEnd);
    QStringList told;
    QList<double> heardRatesHz;
    const QStringList unplugged = {QStringLiteral("The input was unplugged, or has changed.")};
    const QStringList otherDevices = {QStringLiteral("The sound devices have changed.")};
};

TEST_F(CaptureEndTest, InputThatGoes_IsToldOnTheMainThread) {
    installTap();
    ASSERT_FALSE(engine->start());
    standin::changeConfiguration(Engine::Stops);
    EXPECT_EQ(told, QStringList()) << "it is told elsewhere, and waits for the main thread";
    mainQueue.runDue();
    EXPECT_EQ(told, unplugged);
}

TEST_F(CaptureEndTest, TapOfAnInputThatWent_IsMadeAnewWithTheNextFormat) {
    installTap();
    ASSERT_FALSE(engine->start());
    standin::feed({{1}});
    world().input = {44100, 1};
    calls();
    standin::changeConfiguration(Engine::Stops);
    mainQueue.runDue();
    ASSERT_FALSE(engine->start());
    EXPECT_EQ(calls(), QStringList({QStringLiteral("removeTap"), QStringLiteral("engine"),
                                    QStringLiteral("installTap 1024"), QStringLiteral("start")}));
    standin::feed({{1}});
    EXPECT_EQ(heardRatesHz, QList<double>({48000, 44100}));
}

TEST_F(CaptureEndTest, EngineThatIsReplacedWhileItTells_EndsLaterOnTheMainThread) {
    installTap();
    ASSERT_FALSE(engine->start());
    standin::changeConfiguration(Engine::Stops, {}, [this] { mainQueue.runDue(); });
    EXPECT_EQ(told, unplugged);
    EXPECT_EQ(standin::liveObjects("AVAudioEngine"), 2);
    mainQueue.advance(std::chrono::seconds(2));
    EXPECT_EQ(standin::liveObjects("AVAudioEngine"), 1);
    ASSERT_FALSE(engine->start());
    standin::feed({{1}});
    EXPECT_EQ(heardRatesHz.size(), 1);
}

TEST_F(CaptureEndTest, DeviceOfItsOwn_IsKept) {
    installTap();
    ASSERT_EQ(engine->setInputDevice(73), 0);
    ASSERT_FALSE(engine->start());
    standin::changeConfiguration(Engine::Stops);
    mainQueue.runDue();
    EXPECT_EQ(told, unplugged);
    EXPECT_EQ(standin::currentDevice(), 73U) << "another input is not listened to unasked";
}

TEST_F(CaptureEndTest, ChangeThatLeavesTheEngineRunning_IsNoEnd) {
    installTap();
    ASSERT_FALSE(engine->start());
    standin::changeConfiguration(Engine::GoesOn);
    standin::changeInputs(Inputs::List);
    mainQueue.runDue();
    EXPECT_EQ(told, QStringList());
    standin::feed({{1}});
    EXPECT_EQ(heardRatesHz.size(), 1);
}

TEST_F(CaptureEndTest, WordThatComesAfterANewStart_IsNoEnd) {
    installTap();
    ASSERT_FALSE(engine->start());
    standin::changeConfiguration(Engine::Stops);
    ASSERT_FALSE(engine->start());
    mainQueue.runDue();
    EXPECT_EQ(told, QStringList());
}

TEST_F(CaptureEndTest, EngineThatWasStopped_TellsNothing) {
    standin::changeConfiguration(Engine::Stops);
    standin::changeInputs(Inputs::List);
    mainQueue.runDue();
    installTap();
    ASSERT_FALSE(engine->start());
    engine->stop();
    standin::changeConfiguration(Engine::Stops);
    standin::changeInputs(Inputs::Default);
    mainQueue.runDue();
    EXPECT_EQ(told, QStringList());
}

TEST_F(CaptureEndTest, InputThatComes_IsToldWhenOneIsWaitedFor) {
    world().input = {0, 0};
    installTap();
    ASSERT_TRUE(engine->start());
    for (const Inputs what : {Inputs::List, Inputs::Default}) {
        told.clear();
        standin::changeInputs(what);
        mainQueue.runDue();
        EXPECT_EQ(told, otherDevices);
    }
}

TEST_F(CaptureEndTest, EngineThatIsMadeAnew_IsObservedInsteadOfTheOld) {
    installTap();
    ASSERT_EQ(engine->setInputDevice(73), 0);
    ASSERT_FALSE(engine->start());
    engine->followDefaultInput();
    EXPECT_EQ(standin::liveObjects("StandinNotificationToken"), 1);
    ASSERT_FALSE(engine->start());
    standin::changeConfiguration(Engine::Stops);
    mainQueue.runDue();
    EXPECT_EQ(told, unplugged);
}

TEST_F(CaptureEndTest, WordOnItsWayWhenTheEngineGoes_ReachesNobody) {
    installTap();
    ASSERT_FALSE(engine->start());
    standin::changeConfiguration(Engine::Stops);
    engine.reset();
    mainQueue.runDue();
    EXPECT_EQ(told, QStringList());
}

TEST_F(CaptureEndTest, WordOnItsWayWhenTheMainQueueGoesToo_ReachesNobody) {
    engine.reset();
    auto queue = std::make_unique<VirtualMainQueue>();
    const auto comes = [&] {
        queue = std::make_unique<VirtualMainQueue>();
        engine = makeMacAudioEngine(*queue, captureEnd);
        installTap();
        ASSERT_FALSE(engine->start());
    };
    const auto goes = [&] {
        engine.reset();
        queue.reset();
    };
    comes();
    standin::changeConfiguration(Engine::Stops, goes);
    comes();
    standin::changeInputs(Inputs::List, goes);
    EXPECT_EQ(told, QStringList());
}

TEST_F(CaptureEndTest, SystemWhoseInputsCannotBeObserved_IsNoObstacle) {
    engine.reset();
    world().canObserveHardware = false;
    engine = makeMacAudioEngine(mainQueue, captureEnd);
    EXPECT_EQ(standin::hardwareListeners(), 0U);
    installTap();
    EXPECT_FALSE(engine->start());
}

TEST_F(CaptureEndTest, ListenerThatBeginsAnew_MayTakeItsOwnPlace) {
    QStringList next;
    captureEnd->listen(
        [&](const QString&) { captureEnd->listen([&](const QString& reason) { next += reason; }); });
    captureEnd->tell(QStringLiteral("first"));
    captureEnd->tell(QStringLiteral("second"));
    EXPECT_EQ(next, QStringList(QStringLiteral("second")));
}

} // namespace

} // namespace brivandel
