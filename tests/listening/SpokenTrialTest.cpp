#include "listening/SpokenTrial.h"

#include "support/ScriptedListening.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class SpokenTrialTest : public testing::Test {
protected:
    void hear(const QString& text) {
        listening.scripted.speechRecognition.deliver(RecognitionResult{text, false}, {}, {});
        listening.scripted.mainQueue.runDue();
    }
    void begin() {
        trial.begin();
        listening.scripted.mainQueue.runDue();
    }
    [[nodiscard]] QString lastHeard() const {
        return heard.isEmpty() ? QString() : heard.constLast().constFirst().toString();
    }
    [[nodiscard]] bool happened(const std::string& event) const {
        return std::ranges::any_of(
            listening.events, [&](const std::string& line) { return line.find(event) != std::string::npos; });
    }

    ScriptedListening listening;
    SpokenTrial trial{listening.controller, *listening.scripted.platform};
    QSignalSpy heard{&trial, &SpokenTrial::heard};
};

TEST_F(SpokenTrialTest, WhatIsSaid_IsReportedAndNotActedOn) {
    begin();
    EXPECT_TRUE(trial.isListening());
    EXPECT_EQ(trial.status(), QStringLiteral("Listening..."));
    hear(QStringLiteral("Hey Logic play"));
    EXPECT_EQ(lastHeard(), QStringLiteral("hey logic play"));
    EXPECT_TRUE(listening.controller.lastCommand().isEmpty());
    EXPECT_TRUE(listening.controller.lastTranscript().isEmpty());
    EXPECT_FALSE(happened("appleScript"));
    EXPECT_FALSE(listening.controller.isListening());
}

TEST_F(SpokenTrialTest, WhatWasSaidBeforeTheEnd_IsStillReported) {
    begin();
    trial.end();
    EXPECT_FALSE(trial.isListening());
    EXPECT_EQ(trial.status(), QString());
    hear(QStringLiteral("hey logic stop"));
    EXPECT_EQ(lastHeard(), QStringLiteral("hey logic stop"));
}

TEST_F(SpokenTrialTest, TheNextTrial_HearsNothingOfTheLast) {
    begin();
    trial.end();
    begin();
    listening.scripted.speechRecognition.deliver(RecognitionResult{QStringLiteral("late"), true}, {}, 1);
    listening.scripted.mainQueue.runDue();
    EXPECT_EQ(heard.count(), 0);
    hear(QStringLiteral("hey logic"));
    EXPECT_EQ(lastHeard(), QStringLiteral("hey logic"));
}

TEST_F(SpokenTrialTest, HeldForAMinute_IsOneSession) {
    begin();
    hear(QStringLiteral("hey logic"));
    listening.scripted.mainQueue.advance(60s);
    hear(QStringLiteral("hey logic play"));
    EXPECT_EQ(lastHeard(), QStringLiteral("hey logic play"));
    EXPECT_FALSE(happened("tearing down"));
}

TEST_F(SpokenTrialTest, WhileTheControllerListens_CannotBegin) {
    listening.controller.setIsListening(true);
    EXPECT_FALSE(trial.isAvailable());
    begin();
    EXPECT_FALSE(trial.isListening());
    listening.controller.setIsListening(false);
    EXPECT_TRUE(trial.isAvailable());
}

TEST_F(SpokenTrialTest, WhenTheControllerBeginsToListen_GivesUpTheMicrophoneFirst) {
    begin();
    listening.events.clear();
    const QSignalSpy states(&trial, &SpokenTrial::stateChanged);
    listening.controller.setIsListening(true);
    listening.scripted.mainQueue.runDue();
    EXPECT_FALSE(trial.isListening());
    EXPECT_EQ(trial.status(), QString());
    EXPECT_GE(states.count(), 1);
    const auto place = [this](const char* action) {
        return std::ranges::find_if(listening.events, [action](const std::string& event) {
            return event.find(action) != std::string::npos;
        });
    };
    ASSERT_NE(place("\"removeTap\""), listening.events.end());
    ASSERT_NE(place("\"installTap\""), listening.events.end());
    EXPECT_LT(place("\"removeTap\""), place("\"installTap\""));

    hear(QStringLiteral("hey logic stop"));
    EXPECT_EQ(heard.count(), 0);
    EXPECT_EQ(listening.controller.lastCommand(), QStringLiteral("stop"));
}

TEST_F(SpokenTrialTest, AnEngineThatDoesNotStart_SaysWhyAndGoesOnSayingIt) {
    listening.scripted.audioEngine.failStarts(2, QStringLiteral("no microphone"));
    begin();
    EXPECT_EQ(trial.status(), QStringLiteral("Starting..."));
    listening.scripted.mainQueue.advance(1s);
    EXPECT_EQ(trial.status(), QStringLiteral("Audio engine error: no microphone"));
    trial.end();
    EXPECT_EQ(trial.status(), QStringLiteral("Audio engine error: no microphone"));
    begin();
    EXPECT_EQ(trial.status(), QStringLiteral("Listening..."));
}

TEST_F(SpokenTrialTest, AnErrorOfTheRecogniser_BeginsAgain) {
    begin();
    listening.scripted.speechRecognition.deliver({}, QStringLiteral("starved"), {});
    listening.scripted.mainQueue.advance(300ms);
    hear(QStringLiteral("hey logic play"));
    EXPECT_EQ(lastHeard(), QStringLiteral("hey logic play"));
    EXPECT_TRUE(trial.isListening());
}

TEST_F(SpokenTrialTest, ItsEnd_EndsTheCapture) {
    {
        SpokenTrial shortLived(listening.controller, *listening.scripted.platform);
        shortLived.begin();
        listening.events.clear();
    }
    EXPECT_TRUE(happened("\"stop\""));
    EXPECT_TRUE(happened("\"removeTap\""));
}

} // namespace
} // namespace brivandel
