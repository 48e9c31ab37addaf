#include "platform/linux/applescript/FakeKeySender.h"
#include "platform/linux/applescript/LinuxScriptHost.h"
#include "platform/linux/applescript/ProgramScripts.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <memory>
#include <vector>

namespace brivandel {

namespace {

/// From here on the process ends by SIGSYS when it starts a program or a process, opens, renames or removes a
/// file, or reaches for the network. False when the system cannot do that.
bool forbidAllButThinking() {
    constexpr std::array forbidden = {SYS_execve,   SYS_execveat, SYS_clone3,    SYS_openat,  SYS_openat2,
                                      SYS_socket,   SYS_connect,  SYS_sendto,    SYS_bind,    SYS_renameat2,
                                      SYS_unlinkat, SYS_linkat,   SYS_symlinkat, SYS_mkdirat, SYS_ftruncate,
#ifdef SYS_open // systems since have only the calls above
                                      SYS_open,     SYS_creat,    SYS_rename,    SYS_unlink,  SYS_fork,
                                      SYS_vfork,    SYS_mkdir,
#endif
                                      SYS_ptrace};
    std::vector<sock_filter> filter = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const auto call : forbidden) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(call), 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

QString inWorkstation(const char* statement) {
    return testing::keystrokeScript(QString::fromUtf8(statement));
}

/// What AppleScript could do, and what somebody would put into a settings file that he gives away.
QStringList hostileScripts() {
    return {
        QStringLiteral("do shell script \"touch /tmp/was-here\""),
        inWorkstation("do shell script \"curl example.org | sh\""),
        QStringLiteral("open location \"https://example.org/\""),
        QStringLiteral("run script \"delay 1\""),
        QStringLiteral("run script (read file \"/tmp/script\")"),
        QStringLiteral("load script file \"/tmp/script.scpt\""),
        QStringLiteral("set f to open for access \"/tmp/was-here\" with write permission"),
        QStringLiteral("write \"x\" to file \"/tmp/was-here\""),
        QStringLiteral("read POSIX file \"/etc/passwd\""),
        QStringLiteral("tell application \"Finder\" to delete every item of home"),
        QStringLiteral("tell application \"Finder\"\ndelete every item of home\nend tell"),
        QStringLiteral("tell application \"Terminal\" to do script \"rm -r ~\""),
        QStringLiteral("tell application \"System Events\" to shut down"),
        QStringLiteral("tell application \"System Events\"\ndelete disk item \"/\"\nend tell"),
        inWorkstation("keystroke (do shell script \"id\")"),
        inWorkstation("keystroke (the clipboard)"),
        inWorkstation("keystroke \"a\" & (do shell script \"id\")"),
        QStringLiteral("set the clipboard to \"x\""),
        QStringLiteral("use framework \"Foundation\""),
        QStringLiteral("property p : 1"),
        QStringLiteral("repeat\nend repeat"),
        QStringLiteral("on run\nend run"),
        QStringLiteral("delay 1 -- $(id)"),
        QStringLiteral("delay 1; do shell script \"id\""),
        QStringLiteral("tell application \"$(id)\" to launch"),
        QString(100'000, u'('),
        QStringLiteral("tell application \"A\"\n").repeated(150),
    };
}

} // namespace

TEST(HostileScripts, EachIsRefusedBeforeAnyKey) {
    testing::FakeDesktop desktop;
    desktop.running += QStringList{QStringLiteral("Finder"), QStringLiteral("Terminal"), QStringLiteral("A")};
    LinuxScriptHost host(std::make_unique<testing::FakeKeySender>(desktop),
                         std::make_unique<FixedStandIn>(StandIn()), std::make_unique<testing::VirtualTime>());
    for (const QString& script : hostileScripts()) {
        const auto error = host.run(script);
        ASSERT_TRUE(error) << qPrintable(script.left(80));
        EXPECT_FALSE(error->value(QString::fromUtf16(ScriptErrorKey::message)).toString().isEmpty());
    }
    EXPECT_THAT(desktop.actions(), ::testing::IsEmpty());
}

TEST(HostileScriptsDeathTest, Running_StartsNothingAndOpensNothing) {
    EXPECT_EXIT(
        {
            testing::FakeDesktop desktop;
            LinuxScriptHost host(std::make_unique<testing::FakeKeySender>(desktop),
                                 std::make_unique<FixedStandIn>(StandIn()),
                                 std::make_unique<testing::VirtualTime>());
            const QString harmless = inWorkstation("keystroke \"$(id) `id` ; id | id > /tmp/was-here\"");
            const bool warm = !host.run(harmless);
            const bool guarded = forbidAllButThinking();
            bool asExpected = warm && guarded && !host.run(harmless);
            for (const QString& script : hostileScripts()) {
                asExpected = host.run(script).has_value() && asExpected;
            }
            _exit(asExpected ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

// The guard would notice.
TEST(HostileScriptsDeathTest, GuardOfTheTestAbove_EndsWhoeverOpensAFile) {
    EXPECT_EXIT(
        {
            const bool guarded = forbidAllButThinking();
            const int file = open("/dev/null", O_RDONLY);
            _exit(guarded && file >= 0 ? 1 : 2);
        },
        ::testing::KilledBySignal(SIGSYS), "");
    EXPECT_EXIT(
        {
            static_cast<void>(forbidAllButThinking());
            _exit(socket(AF_INET, SOCK_STREAM, 0) >= 0 ? 1 : 2);
        },
        ::testing::KilledBySignal(SIGSYS), "");
}

} // namespace brivandel
