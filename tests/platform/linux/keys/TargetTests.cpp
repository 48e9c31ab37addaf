#include "platform/linux/applescript/ProgramScripts.h"
#include "platform/linux/keys/Desktop.h"
#include "platform/linux/keys/X11KeySender.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel::testing {

namespace {

const QString anyScript = keystrokeScript(QStringLiteral("key code 49"));

TargetName process(const char* name) {
    return {.text = QString::fromUtf8(name)};
}

} // namespace

class TargetTest : public DesktopTest {
protected:
    /// A window whose four names all differ.
    std::unique_ptr<KeyWindowProcess> open(const QString& program) {
        return std::make_unique<KeyWindowProcess>(
            programNamed(program),
            QStringList{QStringLiteral("--class"), QStringLiteral("Studio"), QStringLiteral("--name"),
                        QStringLiteral("studio-7"), QStringLiteral("--title"),
                        QStringLiteral("*My Song - Studio")});
    }
    qint64 pidFound(const TargetName& name) {
        const auto owner = windows().find(name);
        return owner ? owner->pid : -1;
    }
};

TEST_F(TargetTest, NothingRuns_ScriptSaysSo) {
    EXPECT_EQ(run(anyScript), QStringLiteral("System Events got an error: Can’t get process \"Logic Pro\"."));
    EXPECT_EQ(run(barScript(1, ThenPlay::No)),
              QStringLiteral("Logic Pro got an error: Application isn’t running."));
}

TEST_F(TargetTest, Program_IsFoundByEachOfItsNames) {
    const auto window = open(QStringLiteral("workstation-with-a-long-name"));
    for (const char* const name : {"workstation-with-a-long-name", "Studio", "studio", "studio-7"}) {
        EXPECT_EQ(pidFound(process(name)), window->pid()) << name;
    }
    for (const char* const name : {"workstation", "workstation-wit", "Logic Pro", "*My Song - Studio", ""}) {
        EXPECT_EQ(pidFound(process(name)), name == QByteArray("workstation-wit") ? window->pid() : -1)
            << name;
    }
}

TEST_F(TargetTest, ProgramUnderTwoOfItsNames_IsOneTarget) {
    const KeyWindowProcess workstation;
    const OpenTarget open = openTarget();
    const auto byClass = open.session->find({.text = QStringLiteral("logic-pro")}, soon());
    ASSERT_TRUE(std::holds_alternative<KeyTarget>(byClass));
    EXPECT_EQ(std::get<KeyTarget>(byClass), open.target);
}

TEST_F(TargetTest, Title_IsLookedAtOnlyWhenAsked) {
    const auto window = open(QStringLiteral("workstation"));
    EXPECT_EQ(pidFound(TargetName::fromSetting(QStringLiteral("title:my song"))), window->pid());
    EXPECT_EQ(pidFound(TargetName::fromSetting(QStringLiteral("my song"))), -1);
    EXPECT_EQ(pidFound(TargetName::fromSetting(QStringLiteral("title:"))), -1);
}

TEST_F(TargetTest, ProcessOfTheName_GoesBeforeAClassOfTheName) {
    const auto real = open(QStringLiteral("Ardour"));
    const KeyWindowProcess pretender(programNamed(QStringLiteral("pretender")),
                                     {QStringLiteral("--class"), QStringLiteral("Ardour")});
    EXPECT_EQ(pidFound(process("Ardour")), real->pid());
}

TEST_F(TargetTest, StandIn_GetsTheKeysOfTheWorkstation) {
    const auto window = open(QStringLiteral("Ardour"));
    KeyWindowProcess namesake;

    EXPECT_EQ(run(anyScript, process("Ardour")), QString());

    EXPECT_EQ(window->takeKeys(x()).size(), 1U);
    EXPECT_TRUE(namesake.takeKeys(x()).empty());
}

TEST_F(TargetTest, WindowOfAnotherMachine_HasNoProcessHere) {
    const KeyWindowProcess window;
    const QByteArray machine = "elsewhere.example";
    xcb_change_property(x().xcb(), XCB_PROP_MODE_REPLACE, window.window(),
                        x().atom(x11::Atom::WmClientMachine), XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(machine.size()), machine.constData());
    x().sync();
    EXPECT_EQ(windows().ownerOf(window.window()).pid, 0);
    EXPECT_TRUE(windows().find(process("Logic Pro"))) << "by its class";
}

TEST_F(TargetTest, Report_TellsWhatThereIs) {
    const auto window = open(QStringLiteral("Ardour"));

    const KeySenderReport report = X11KeySender().report(process("Ardour"));

    EXPECT_EQ(report.problem, QString());
    EXPECT_EQ(report.windowManager, QStringLiteral("Openbox"));
    ASSERT_TRUE(report.target);
    EXPECT_EQ(report.target->program, QStringLiteral("Ardour"));
    EXPECT_EQ(report.target->windowTitle, QStringLiteral("*My Song - Studio"));
    EXPECT_EQ(report.target->pid, window->pid());
    EXPECT_FALSE(X11KeySender().report(process("Logic Pro")).target);
}

} // namespace brivandel::testing
