#include "AdapterTest.h"
#include "platform/macos/MacServices.h"

namespace brivandel {

namespace {

class PermissionsTest : public AdapterTest {
protected:
    void requestBoth() {
        permissions->requestSpeechAuthorization([this](SpeechAuthorization answer) {
            answers += QStringLiteral("speech %1").arg(static_cast<int>(answer));
        });
        permissions->requestMicrophoneAccess([this](bool granted) {
            answers += granted ? QStringLiteral("granted") : QStringLiteral("refused");
        });
    }

    std::unique_ptr<Permissions> permissions = makeMacPermissions();
    QStringList answers;
};

TEST_F(PermissionsTest, Requests_AreForSoundAndForAlertsWithSound) {
    requestBoth();
    permissions->requestNotificationAuthorization();
    EXPECT_EQ(calls(),
              QStringList({QStringLiteral("request speech"), QStringLiteral("request microphone soun"),
                           QStringLiteral("request notifications 6")}));
    standin::answerNotifications(true);
    standin::answerSpeech(3);
    standin::answerMicrophone(true);
}

TEST_F(PermissionsTest, Answers_ComeInEitherOrder) {
    requestBoth();
    EXPECT_TRUE(answers.isEmpty());
    standin::answerSpeech(1);
    standin::answerMicrophone(true);
    requestBoth();
    standin::answerMicrophone(false);
    standin::answerSpeech(3);
    EXPECT_EQ(answers, QStringList({QStringLiteral("speech 1"), QStringLiteral("granted"),
                                    QStringLiteral("refused"), QStringLiteral("speech 3")}));
}

TEST_F(PermissionsTest, AnswerOfTheFuture_KeepsItsNumber) {
    permissions->requestSpeechAuthorization(
        [this](SpeechAuthorization answer) { answers += QString::number(static_cast<int>(answer)); });
    standin::answerSpeech(7);
    EXPECT_EQ(answers, QStringList(QStringLiteral("7")));
}

TEST_F(PermissionsTest, AnswerAfterTheEnd_ReachesNobody) {
    requestBoth();
    permissions.reset();
    standin::answerSpeech(3);
    standin::answerMicrophone(true);
    EXPECT_TRUE(answers.isEmpty());
}

} // namespace

} // namespace brivandel
