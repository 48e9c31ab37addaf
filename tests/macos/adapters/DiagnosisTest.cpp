#include "platform/Diagnosis.h"

#include "AdapterTest.h"

#include <algorithm>

namespace brivandel {

namespace {

using State = Finding::State;

class DiagnosisTest : public AdapterTest {
protected:
    DiagnosisTest() {
        world().devices = {{QStringLiteral("uid-1"), QStringLiteral("Interface"), 73}};
        world().isTrusted = true;
        world().automationStatus = 0;
        world().runningPrograms = {QStringLiteral("Finder"), QStringLiteral("Logic Pro")};
    }

    static Finding finding(const char16_t* subject, const DiagnosisOptions& options = {}) {
        const auto findings = diagnose(options);
        const auto found = std::ranges::find(findings, QStringView(subject), &Finding::subject);
        return found == findings.end() ? Finding{QStringLiteral("absent"), State::Missing, {}, {}} : *found;
    }
};

TEST_F(DiagnosisTest, WhenAllIsAllowed_AllIsWell) {
    for (const Finding& finding : diagnose({})) {
        EXPECT_EQ(finding.state, State::Well) << finding.subject.toStdString();
        EXPECT_TRUE(finding.remedy.isEmpty()) << finding.remedy.toStdString();
    }
    EXPECT_EQ(finding(u"microphone", {{}, QStringLiteral("uid-1")}).detail, QStringLiteral("Interface"));
}

TEST_F(DiagnosisTest, Accessibility_IsAskedWithoutAPromptAndSaidWhereToGrant) {
    world().isTrusted = false;
    const Finding accessibility = finding(u"accessibility");
    EXPECT_EQ(accessibility.state, State::Wanting);
    EXPECT_EQ(accessibility.remedy,
              QStringLiteral("allow Brivandel in System Settings, Privacy & Security, Accessibility"));
}

TEST_F(DiagnosisTest, Automation_IsAskedWithoutAPrompt) {
    calls();
    for (const auto& [status, state] :
         {std::pair(0, State::Well), {-1743, State::Wanting}, {-1744, State::Wanting}, {-600, State::Well}}) {
        world().automationStatus = status;
        EXPECT_EQ(finding(u"system events").state, state) << status;
        EXPECT_TRUE(calls().contains(QStringLiteral("may automate com.apple.systemevents ask=0")));
    }
}

TEST_F(DiagnosisTest, Recogniser_NeedsConsentAndTheSystemsOwn) {
    world().speechStatus = 0;
    EXPECT_EQ(finding(u"recogniser").detail, QStringLiteral("you have not been asked yet"));
    world().speechStatus = 1;
    EXPECT_EQ(finding(u"recogniser").state, State::Missing);
    world().speechStatus = 2;
    EXPECT_EQ(finding(u"recogniser").detail, QStringLiteral("not allowed on this machine"));
    world().speechStatus = 3;
    world().isRecognizerAvailable = false;
    EXPECT_EQ(finding(u"recogniser").detail,
              QStringLiteral("the system's recogniser is not available at present"));
    world().locales.clear();
    EXPECT_EQ(finding(u"recogniser").detail,
              QStringLiteral("the system does not recognise American English"));
}

TEST_F(DiagnosisTest, Server_IsNotKeptQuietAbout) {
    EXPECT_TRUE(finding(u"recogniser").detail.contains(QStringLiteral("by its server")));
    world().recognizesHere = true;
    EXPECT_TRUE(finding(u"recogniser").detail.contains(QStringLiteral("it may use its server")));
}

TEST_F(DiagnosisTest, Microphone_NeedsConsentAndTheChosenInput) {
    EXPECT_TRUE(finding(u"microphone", {{}, QStringLiteral("gone")}).detail.contains(QStringLiteral("gone")));
    world().devices.clear();
    EXPECT_EQ(finding(u"microphone").state, State::Missing);
    // Restricted is 1 here and denied 2, the other way round than for speech.
    world().microphoneStatus = 1;
    EXPECT_EQ(finding(u"microphone").detail, QStringLiteral("not allowed on this machine"));
    world().microphoneStatus = 2;
    EXPECT_EQ(finding(u"microphone").detail, QStringLiteral("not allowed"));
    world().microphoneStatus = 0;
    EXPECT_EQ(finding(u"microphone").detail, QStringLiteral("you have not been asked yet"));
}

TEST_F(DiagnosisTest, Target_MustRun) {
    world().runningPrograms.removeLast();
    EXPECT_EQ(finding(u"target").detail, QStringLiteral("Logic Pro is not running"));
    EXPECT_EQ(finding(u"target", {QStringLiteral("Ardour"), {}}).remedy,
              QStringLiteral("leave out --target"));
}

TEST_F(DiagnosisTest, Notifications_NeedABundle) {
    world().bundleIdentifier = QString();
    EXPECT_EQ(finding(u"notifications").state, State::Wanting);
}

} // namespace

} // namespace brivandel
