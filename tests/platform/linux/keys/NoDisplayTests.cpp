#include "platform/linux/applescript/LinuxScriptHost.h"
#include "platform/linux/applescript/ProgramScripts.h"
#include "platform/linux/keys/X11KeySender.h"
#include "platform/linux/keys/X11KeyboardLayout.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <memory>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

/// Takes connections and never says a word, as a server that is stopped does.
class SilentDisplay {
public:
    SilentDisplay() : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        // The name space of abstract sockets is where X clients look first; a high number is nobody's.
        for (number_ = 4000; number_ < 4100; ++number_) {
            sockaddr_un address{};
            address.sun_family = AF_UNIX;
            const QByteArray path = "/tmp/.X11-unix/X" + QByteArray::number(number_);
            std::memcpy(address.sun_path + 1, path.constData(), static_cast<std::size_t>(path.size()));
            const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 +
                                                       static_cast<std::size_t>(path.size()));
            if (::bind(socket_, reinterpret_cast<const sockaddr*>(&address), length) == 0) {
                listening_ = ::listen(socket_, 4) == 0;
                return;
            }
        }
    }
    ~SilentDisplay() { ::close(socket_); }
    SilentDisplay(const SilentDisplay&) = delete;
    SilentDisplay& operator=(const SilentDisplay&) = delete;

    [[nodiscard]] bool isListening() const { return listening_; }
    [[nodiscard]] QByteArray name() const { return ":" + QByteArray::number(number_); }

private:
    int socket_;
    int number_ = 0;
    bool listening_ = false;
};

QString messageOf(const ScriptErrorDictionary& error) {
    return error.value(QString::fromUtf16(ScriptErrorKey::message)).toString();
}

} // namespace

TEST(NoDisplay, EveryScript_SaysSo) {
    LinuxScriptHost host(std::make_unique<X11KeySender>(":4999"), std::make_unique<FixedStandIn>(StandIn{}));
    for (const testing::ProgramScript& script : testing::programScripts()) {
        const auto error = host.run(script.source);
        ASSERT_TRUE(error) << script.name;
        EXPECT_EQ(messageOf(*error),
                  QStringLiteral("System Events got an error: The X display \":4999\" can’t be opened."));
    }
}

TEST(NoDisplay, NoneNamed_IsSaid) {
    qunsetenv("DISPLAY");
    EXPECT_EQ(X11KeySender().report({}).problem,
              QStringLiteral("There is no X display to send keys to (DISPLAY is not set)."));
}

TEST(NoDisplay, Report_HasTheProblemAndNothingElse) {
    const KeySenderReport report = X11KeySender(":4999").report({.text = QStringLiteral("Logic Pro")});
    EXPECT_EQ(report.problem, QStringLiteral("The X display \":4999\" can’t be opened."));
    EXPECT_TRUE(report.windowManager.isEmpty());
    EXPECT_FALSE(report.target);
}

TEST(NoDisplay, Layout_NamesNoKey) {
    EXPECT_FALSE(X11KeyboardLayout(":4999").characterForKeyCode(0));
}

TEST(SilentDisplay, Script_GivesUpInTime) {
    auto display = std::make_unique<SilentDisplay>();
    ASSERT_TRUE(display->isListening());
    LinuxScriptHost host(std::make_unique<X11KeySender>(display->name()), std::make_unique<FixedStandIn>(StandIn{}),
                         std::make_unique<script::SystemScriptTime>(), 200ms);

    const auto start = std::chrono::steady_clock::now();
    const auto error = host.run(testing::keystrokeScript(QStringLiteral("key code 49")));

    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
    ASSERT_TRUE(error);
    EXPECT_EQ(
        messageOf(*error),
        QStringLiteral("System Events got an error: AppleEvent timed out. The X display does not answer."));
    EXPECT_EQ(error->value(QString::fromUtf16(ScriptErrorKey::number)), -1712);

    // Once it is gone, others can be tried.
    display.reset();
    EXPECT_EQ(X11KeySender(":4999").report({}, 20s).problem,
              QStringLiteral("The X display \":4999\" can’t be opened."));
}

} // namespace brivandel
