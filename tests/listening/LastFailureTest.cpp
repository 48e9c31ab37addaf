#include "listening/LastFailure.h"

#include "listening/VoiceController.h"
#include "listening/WatchedPlatform.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace brivandel {
namespace {

using namespace std::chrono_literals;

class LastFailureTest : public testing::Test {
protected:
    LastFailureTest() { watched_.mainQueue().runDue(); }

    [[nodiscard]] std::unique_ptr<LastFailure> makeFailure(const QString& path) {
        return std::make_unique<LastFailure>(controller_, path, [this] { return now_; });
    }
    [[nodiscard]] FailureRecord recordNow(const QString& text) const { return {text, now_}; }

    WatchedPlatform watched_;
    VoiceController controller_{watched_.platform()};
    QTemporaryDir folder_;
    QString path_ = folder_.filePath(QStringLiteral("state/last-failure.json"));
    QDateTime now_ = QDateTime::fromString(QStringLiteral("2026-11-15T23:22:41Z"), Qt::ISODate);
    std::unique_ptr<LastFailure> failure_ = makeFailure(path_);
};

TEST_F(LastFailureTest, NothingFailed_HasNoRecordAndMakesNoFile) {
    controller_.setIsListening(true);
    watched_.mainQueue().runDue();
    controller_.setIsListening(false);
    EXPECT_EQ(failure_->record(), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(folder_.filePath(QStringLiteral("state"))));
}

TEST_F(LastFailureTest, ScriptThatFails_IsRememberedAfterTheNextSuccess) {
    const QString message = QStringLiteral("Not allowed.");
    watched_.scripted().scriptHost.setOutcome(
        ScriptErrorDictionary{{QString::fromUtf16(ScriptErrorKey::message), message}}, {});
    controller_.setIsListening(true);
    const auto hear = [this](const QString& text) {
        watched_.scripted().speechRecognition.deliver(RecognitionResult{.formattedString = text},
                                                      std::nullopt, std::nullopt);
        watched_.mainQueue().advance(2s);
    };
    hear(QStringLiteral("hey logic play"));
    const FailureRecord failed = recordNow(QStringLiteral("Error: Not allowed."));
    EXPECT_EQ(failure_->record(), failed);
    now_ = now_.addSecs(5);
    watched_.scripted().scriptHost.setOutcome(std::nullopt, {});
    hear(QStringLiteral("hey logic stop"));
    EXPECT_EQ(controller_.lastCommand(), QStringLiteral("stop"));
    EXPECT_EQ(failure_->record(), failed);
}

TEST_F(LastFailureTest, EngineThatDoesNotStart_IsRemembered) {
    watched_.scripted().audioEngine.failStarts(2, QStringLiteral("no input"));
    controller_.setIsListening(true);
    watched_.mainQueue().advance(1s);
    EXPECT_EQ(failure_->record(), recordNow(QStringLiteral("Audio engine error: no input")));
}

TEST_F(LastFailureTest, RequestThatCannotBeMade_IsRemembered) {
    watched_.scripted().speechRecognition.setRequestAvailable(false);
    controller_.setIsListening(true);
    EXPECT_EQ(failure_->record(), recordNow(QStringLiteral("Unable to create recognition request")));
}

TEST_F(LastFailureTest, PermissionRefused_IsRemembered) {
    watched_.scripted().permissions.answerSpeech(SpeechAuthorization::Denied);
    watched_.mainQueue().runDue();
    EXPECT_EQ(failure_->record(), recordNow(QStringLiteral("Speech recognition denied")));
    watched_.scripted().permissions.answerMicrophone(false);
    watched_.mainQueue().runDue();
    EXPECT_EQ(failure_->record(), recordNow(QStringLiteral("Microphone access denied")));
}

TEST_F(LastFailureTest, OtherStatusTexts_AreNoFailures) {
    for (const QString& status : {QStringLiteral("Ready"), QStringLiteral("Stopped"),
                                  QStringLiteral("Listening..."), QStringLiteral("Say 'Error: ' to activate"),
                                  QStringLiteral("Executing: Error: a command of that name"),
                                  QStringLiteral("✓ Error: a command of that name"),
                                  QStringLiteral("Trigger word disabled"), QString()}) {
        EXPECT_FALSE(isFailureStatus(status)) << qPrintable(status);
    }
}

TEST_F(LastFailureTest, EveryFailure_IsAnnouncedAndTheNewestStands) {
    int changes = 0;
    QObject::connect(failure_.get(), &LastFailure::changed, failure_.get(), [&changes] { ++changes; });
    controller_.setStatusMessage(QStringLiteral("Error: one"));
    controller_.setStatusMessage(QStringLiteral("Ready"));
    controller_.setStatusMessage(QStringLiteral("Error: two"));
    now_ = now_.addSecs(1);
    controller_.setStatusMessage(QStringLiteral("Error: two"));
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(failure_->record(), recordNow(QStringLiteral("Error: two")));
}

TEST_F(LastFailureTest, NextRun_BeginsWithWhatWasNoted) {
    controller_.setStatusMessage(QStringLiteral("Error: “ünï”\n🎹"));
    const auto failed = failure_->record();
    ASSERT_TRUE(failed);
    EXPECT_EQ(readFailureRecord(path_), failed);
    EXPECT_EQ(makeFailure(path_)->record(), failed);
    EXPECT_EQ(QFileInfo(path_).permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
              QFileDevice::Permissions());
}

TEST_F(LastFailureTest, FailureThatRepeats_IsStoredOnceAMinute) {
    const QString text = QStringLiteral("Audio engine error: no input");
    controller_.setStatusMessage(text);
    const FailureRecord first = recordNow(text);
    now_ = now_.addSecs(59);
    controller_.setStatusMessage(text);
    EXPECT_EQ(readFailureRecord(path_), first);
    EXPECT_EQ(failure_->record(), recordNow(text));
    now_ = now_.addSecs(1);
    controller_.setStatusMessage(text);
    EXPECT_EQ(readFailureRecord(path_), recordNow(text));
    controller_.setStatusMessage(QStringLiteral("Error: another"));
    EXPECT_EQ(readFailureRecord(path_), recordNow(QStringLiteral("Error: another")));
}

TEST_F(LastFailureTest, FileOfSomethingElse_ReadsAsNone) {
    EXPECT_EQ(readFailureRecord(path_), std::nullopt);
    const QString path = folder_.filePath(QStringLiteral("else"));
    for (const char* text :
         {"", "[]", "{}", R"({"text": "x"})", R"({"text": "", "when": "2026-11-15T23:22:41Z"})",
          R"({"text": 5, "when": "2026-11-15T23:22:41Z"})", R"({"text": "x", "when": "soon"})"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text);
        file.close();
        EXPECT_EQ(readFailureRecord(path), std::nullopt) << text;
    }
}

TEST_F(LastFailureTest, FileThatCannotBeWritten_IsRememberedAllTheSame) {
    QFile inTheWay(folder_.filePath(QStringLiteral("file")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const auto failure = makeFailure(folder_.filePath(QStringLiteral("file/state/last-failure.json")));
    controller_.setStatusMessage(QStringLiteral("Error: one"));
    EXPECT_EQ(failure->record(), recordNow(QStringLiteral("Error: one")));
}

} // namespace
} // namespace brivandel
