#include "AdapterTest.h"
#include "platform/macos/CaptureEnd.h"
#include "platform/macos/MacServices.h"

#include <array>

namespace brivandel {

namespace {

class SpeechTest : public AdapterTest {
protected:
    void begin() {
        request = recognition->makeRequest();
        request->setShouldReportPartialResults(true);
        task = recognizer->startTask(request, [this](const auto& result, const auto& error) {
            heard += (result ? result->formattedString : QStringLiteral("–")) +
                     (result && result->isFinal ? QStringLiteral(".") : QString()) +
                     (error ? QStringLiteral(" !") + *error : QString());
        });
    }

    std::shared_ptr<CaptureEnd> captureEnd = std::make_shared<CaptureEnd>();
    std::unique_ptr<SpeechRecognition> recognition = makeMacSpeechRecognition(captureEnd);
    std::unique_ptr<SpeechRecognizer> recognizer = recognition->makeRecognizer(QStringLiteral("en-US"));
    std::shared_ptr<SpeechRecognitionRequest> request;
    std::unique_ptr<SpeechRecognitionTask> task;
    QStringList heard;
};

TEST_F(SpeechTest, LocaleThatIsNotRecognised_HasNoRecognizer) {
    EXPECT_EQ(recognition->makeRecognizer(QStringLiteral("tlh")), nullptr);
}

TEST_F(SpeechTest, Task_ReportsPartialResultsOnAQueueOfItsOwn) {
    begin();
    EXPECT_EQ(calls(), QStringList(QStringLiteral("task partial=1 queue=1")));
}

TEST_F(SpeechTest, Results_ComeAsTheyAre) {
    begin();
    standin::hear(QStringLiteral("Hey Logic"), false);
    standin::hear(QStringLiteral("Hey Logic, play"), true);
    EXPECT_EQ(heard, QStringList({QStringLiteral("Hey Logic"), QStringLiteral("Hey Logic, play.")}));
}

TEST_F(SpeechTest, Error_EndsTheSession) {
    begin();
    standin::hearAndFail(QStringLiteral("Hey"), QStringLiteral("No speech detected"));
    standin::hear(QStringLiteral("late"), false);
    standin::failRecognition(QStringLiteral("again"));
    EXPECT_EQ(heard, QStringList(QStringLiteral("Hey !No speech detected")));
}

TEST_F(SpeechTest, ErrorAlone_IsDelivered) {
    begin();
    standin::failRecognition(QStringLiteral("Siri and Dictation are disabled"));
    EXPECT_EQ(heard, QStringList(QStringLiteral("– !Siri and Dictation are disabled")));
}

TEST_F(SpeechTest, FinishedTask_StillDeliversWhenItIsLetGo) {
    begin();
    request->endAudio();
    task->finish();
    task.reset();
    request.reset();
    EXPECT_EQ(calls(), QStringList({QStringLiteral("task partial=1 queue=1"), QStringLiteral("endAudio"),
                                    QStringLiteral("finish")}));
    standin::hear(QStringLiteral("play"), true);
    EXPECT_EQ(heard, QStringList(QStringLiteral("play.")));
}

TEST_F(SpeechTest, CancelledTask_DeliversNothing) {
    begin();
    task->cancel();
    EXPECT_TRUE(calls().contains(QStringLiteral("cancel")));
    standin::hear(QStringLiteral("late"), true);
    EXPECT_TRUE(heard.isEmpty()) << heard.join(u';').toStdString();
}

TEST_F(SpeechTest, SessionWhoseRequestNobodyHolds_EndsSilently) {
    begin();
    task.reset();
    request.reset();
    EXPECT_TRUE(calls().contains(QStringLiteral("cancel")));
    EXPECT_TRUE(heard.isEmpty());
}

TEST_F(SpeechTest, HandlerMayEndItsOwnSession) {
    request = recognition->makeRequest();
    task = recognizer->startTask(request, [this](const auto&, const auto&) {
        heard += QStringLiteral("once");
        task->cancel();
    });
    standin::hear(QStringLiteral("play"), true);
    standin::hear(QStringLiteral("stop"), true);
    EXPECT_EQ(heard, QStringList(QStringLiteral("once")));
}

TEST_F(SpeechTest, EndOfCapture_IsTheErrorOfTheNewestSession) {
    begin();
    task->finish();
    const auto older = std::exchange(request, nullptr);
    begin();
    calls();
    captureEnd->tell(QStringLiteral("unplugged"));
    EXPECT_EQ(heard, QStringList(QStringLiteral("– !unplugged")));
    EXPECT_EQ(calls(), QStringList(QStringLiteral("cancel"))) << "it costs nothing from now on";
    captureEnd->tell(QStringLiteral("again"));
    standin::hear(QStringLiteral("older"), true);
    EXPECT_EQ(heard, QStringList({QStringLiteral("– !unplugged"), QStringLiteral("older.")}))
        << "the failed session is over, the one before still delivers";
}

TEST_F(SpeechTest, EndOfCaptureWithoutASession_TellsNobody) {
    captureEnd->tell(QStringLiteral("unplugged"));
    begin();
    task->cancel();
    captureEnd->tell(QStringLiteral("unplugged"));
    task.reset();
    request.reset();
    captureEnd->tell(QStringLiteral("unplugged"));
    EXPECT_TRUE(heard.isEmpty()) << heard.join(u';').toStdString();
}

TEST_F(SpeechTest, OlderSession_GoesOnBesideANewOne) {
    begin();
    task->finish();
    const auto older = std::exchange(request, nullptr);
    begin();
    standin::failRecognition(QStringLiteral("older"), 1);
    standin::hear(QStringLiteral("newer"), false);
    EXPECT_EQ(heard, QStringList({QStringLiteral("– !older"), QStringLiteral("newer")}));
}

TEST_F(SpeechTest, Sound_IsCopiedChannelByChannel) {
    begin();
    const std::array<float, 3> left{0.25F, -0.5F, 1};
    const std::array<float, 3> right{0, 0.5F, -1};
    const std::array<const float*, 2> both{left.data(), right.data()};
    request->append({48000, 3, both});
    EXPECT_EQ(standin::appended(),
              (std::vector<std::vector<float>>{{left.begin(), left.end()}, {right.begin(), right.end()}}));
}

TEST_F(SpeechTest, OfManyChannels_TheFirstIsHeard) {
    begin();
    const std::array<float, 2> voice{0.25F, -0.5F};
    const std::array<float, 2> other{1, 1};
    const std::array<const float*, 6> channels{voice.data(), other.data(), other.data(),
                                               other.data(), other.data(), nullptr};
    request->append({48000, 2, channels});
    EXPECT_EQ(standin::appended(), (std::vector<std::vector<float>>{{voice.begin(), voice.end()}}));
}

TEST_F(SpeechTest, SoundWithoutData_IsDropped) {
    begin();
    const std::array<float, 1> sample{1};
    const std::array<const float*, 2> incomplete{sample.data(), nullptr};
    request->append({48000, 1, incomplete});
    request->append({48000, 1, {}});
    request->append({48000, 0, std::span(incomplete).first(1)});
    request->append({0, 1, std::span(incomplete).first(1)});
    EXPECT_TRUE(standin::appended().empty());
}

} // namespace

} // namespace brivandel
