#include "platform/macos/FileSpeechRecognition.h"

#include "AdapterTest.h"
#include "platform/macos/CaptureEnd.h"
#include "platform/macos/MacServices.h"

#include <array>
#include <future>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

class FileSpeechRecognitionTest : public AdapterTest {
protected:
    void begin(std::chrono::milliseconds patience = FileSpeechRecognition::defaultPatience) {
        recognition = std::make_unique<FileSpeechRecognition>(
            makeMacSpeechRecognition(std::make_shared<CaptureEnd>()), patience);
        recognizer = recognition->makeRecognizer(QStringLiteral("en-US"));
        recognizer->setVocabulary({});
        request = recognition->makeRequest();
        request->setShouldReportPartialResults(true);
        task = recognizer->startTask(request, [this](const auto& result, const auto& error) {
            heard += (result ? result->formattedString : QStringLiteral("–")) +
                     (result && result->isFinal ? QStringLiteral(".") : QString()) +
                     (error ? QStringLiteral(" !") + *error : QString());
        });
    }

    void append() {
        const std::array<float, 1> sample{0.5F};
        const std::array<const float*, 1> mono{sample.data()};
        request->append({48000, 1, mono});
    }

    std::unique_ptr<SpeechRecognition> recognition;
    std::unique_ptr<SpeechRecognizer> recognizer;
    std::shared_ptr<SpeechRecognitionRequest> request;
    std::unique_ptr<SpeechRecognitionTask> task;
    QStringList heard;
};

TEST_F(FileSpeechRecognitionTest, WhatIsHeard_ComesWithTheSound) {
    begin();
    EXPECT_EQ(calls(), QStringList(QStringLiteral("task partial=1 queue=1")));
    standin::hear(QStringLiteral("hey"), false);
    standin::hear(QStringLiteral("hey logic"), false);
    EXPECT_TRUE(heard.isEmpty()) << "it waits for the caller's thread";
    append();
    EXPECT_EQ(heard, QStringList({QStringLiteral("hey"), QStringLiteral("hey logic")}));
    EXPECT_EQ(standin::appended(), (std::vector<std::vector<float>>{{0.5F}}));
    task->cancel();
}

TEST_F(FileSpeechRecognitionTest, EndOfTheSound_WaitsForTheRest) {
    begin();
    std::future<void> rest;
    world().duringEndAudio = [&] {
        rest = std::async(std::launch::async, [] {
            standin::hear(QStringLiteral("play"), false);
            standin::hear(QStringLiteral("play that"), true);
        });
    };
    request->endAudio();
    rest.wait();
    EXPECT_EQ(heard, QStringList({QStringLiteral("play"), QStringLiteral("play that.")}));
}

TEST_F(FileSpeechRecognitionTest, ErrorAtTheEnd_EndsTheWait) {
    begin();
    standin::failRecognition(QStringLiteral("No speech detected"));
    request->endAudio();
    request->endAudio();
    EXPECT_EQ(heard, QStringList(QStringLiteral("– !No speech detected"))) << "and it is told once";
}

TEST_F(FileSpeechRecognitionTest, EndThatDoesNotCome_IsAnErrorAfterAWhile) {
    begin(0ms);
    standin::hear(QStringLiteral("play"), false);
    request->endAudio();
    EXPECT_EQ(heard, QStringList({QStringLiteral("play"),
                                  QStringLiteral("– !the recogniser did not come to an end")}));
    task->cancel();
}

TEST_F(FileSpeechRecognitionTest, CancelledTask_DeliversNothing) {
    begin();
    standin::hear(QStringLiteral("play"), false);
    task->cancel();
    append();
    request->endAudio();
    EXPECT_TRUE(heard.isEmpty()) << heard.join(u';').toStdString();
}

TEST_F(FileSpeechRecognitionTest, FinishedTask_StillDelivers) {
    begin();
    task->finish();
    EXPECT_TRUE(calls().contains(QStringLiteral("finish")));
    standin::hear(QStringLiteral("play"), true);
    request->endAudio();
    EXPECT_EQ(heard, QStringList(QStringLiteral("play.")));
}

TEST_F(FileSpeechRecognitionTest, WhatTheSystemDoesNotHave_IsNotMadeUp) {
    begin();
    task->cancel();
    EXPECT_EQ(recognition->makeRecognizer(QStringLiteral("tlh")), nullptr);
    const auto foreign = makeMacSpeechRecognition(std::make_shared<CaptureEnd>())->makeRequest();
    EXPECT_EQ(recognizer->startTask(foreign, {}), nullptr) << "a request of another recogniser";
}

} // namespace

} // namespace brivandel
