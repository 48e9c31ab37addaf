#include "platform/linux/desktop/LinuxPermissions.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <future>
#include <optional>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

class RecordingLog final : public DiagnosticLog {
public:
    /// Read after the permissions, which write on a thread, are gone.
    QStringList lines;
    void write(const QString& message) override { lines.append(message); }
};

} // namespace

class LinuxPermissionsTest : public testing::Test {
protected:
    SpeechAuthorization askSpeech(const std::optional<QString>& problem) {
        LinuxPermissions permissions(
            log_, [problem] { return problem; }, [] { return true; });
        std::promise<SpeechAuthorization> answer;
        permissions.requestSpeechAuthorization([&](SpeechAuthorization status) { answer.set_value(status); });
        return answer.get_future().get();
    }

    bool askMicrophone(bool hasMicrophone) {
        LinuxPermissions permissions(
            log_, [] { return std::nullopt; }, [=] { return hasMicrophone; });
        std::promise<bool> answer;
        permissions.requestMicrophoneAccess([&](bool granted) { answer.set_value(granted); });
        return answer.get_future().get();
    }

    RecordingLog log_;
};

TEST_F(LinuxPermissionsTest, RecogniserWorks_SpeechIsAuthorized) {
    EXPECT_EQ(askSpeech(std::nullopt), SpeechAuthorization::Authorized);
    EXPECT_TRUE(log_.lines.isEmpty());
}

TEST_F(LinuxPermissionsTest, ModelMissing_SpeechIsRestrictedAndTheLogSaysWhich) {
    EXPECT_EQ(askSpeech(QStringLiteral("no model at /models/en-us")), SpeechAuthorization::Restricted);
    EXPECT_EQ(log_.lines,
              QStringList(QStringLiteral("Speech recognition restricted: no model at /models/en-us")));
}

TEST_F(LinuxPermissionsTest, Microphone_IsGrantedWhenThereIsOne) {
    EXPECT_TRUE(askMicrophone(true));
    EXPECT_TRUE(log_.lines.isEmpty());
    EXPECT_FALSE(askMicrophone(false));
    EXPECT_EQ(log_.lines.size(), 1);
}

TEST_F(LinuxPermissionsTest, Request_ReturnsBeforeTheAnswerIsKnown) {
    std::promise<void> mayAnswer;
    std::promise<SpeechAuthorization> answer;
    auto answered = answer.get_future();
    {
        LinuxPermissions permissions(
            log_,
            [&]() -> std::optional<QString> {
                mayAnswer.get_future().wait();
                return std::nullopt;
            },
            [] { return true; });
        permissions.requestSpeechAuthorization([&](SpeechAuthorization status) { answer.set_value(status); });
        EXPECT_EQ(answered.wait_for(0s), std::future_status::timeout);
        mayAnswer.set_value();
    }
    EXPECT_EQ(answered.wait_for(0s), std::future_status::ready)
        << "destruction waits for what is being asked";
}

} // namespace brivandel
