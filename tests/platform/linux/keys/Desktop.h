#pragma once

#include "platform/linux/applescript/LinuxScriptHost.h"
#include "platform/linux/keys/KeySender.h"
#include "platform/linux/keys/X11Connection.h"
#include "platform/linux/keys/X11Windows.h"

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace brivandel::testing {

/// Longer than anything on the desktop takes; only a failing test waits for it.
inline constexpr std::chrono::seconds forEver{20};

/// Real time without a script's own delays: nothing on the desktop depends on them.
class HurriedTime final : public script::ScriptTime {
public:
    [[nodiscard]] TimePoint now() const override { return std::chrono::steady_clock::now(); }
    void waitUntil(TimePoint /*time*/) override {}
    void interrupt() override {}
};

/// A key that a window got.
struct SeenKey {
    int keyCode = -1;
    QString symbol;
    QString text;
    QStringList modifiers;
};

/// A window of another process. The process ends with this.
class KeyWindowProcess {
public:
    explicit KeyWindowProcess(const QString& program = QStringLiteral(KEY_WINDOW_PROGRAM),
                              const QStringList& arguments = {});
    ~KeyWindowProcess();

    /// Of its main window.
    [[nodiscard]] xcb_window_t window() const { return window_; }
    [[nodiscard]] qint64 pid() const { return process_.processId(); }
    xcb_window_t openDialog();
    void close();
    /// What has been pressed since the last call, modifier keys left out. All of it: the window is asked
    /// whether it has come to the end.
    [[nodiscard]] std::vector<SeenKey> takeKeys(x11::Connection& connection);
    /// The same, with the modifier keys.
    [[nodiscard]] std::vector<SeenKey> takeAllKeys(x11::Connection& connection);

private:
    QJsonObject readEvent();
    xcb_window_t awaitWindow(const QString& name);

    QProcess process_;
    xcb_window_t window_ = XCB_NONE;
};

/// The texts of keys, one after another.
[[nodiscard]] QString textOf(const std::vector<SeenKey>& keys);

/// A test on the desktop that script/with-desktop has made.
class DesktopTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// A host that sends real keys; the target stands for the workstation.
    [[nodiscard]] static std::unique_ptr<LinuxScriptHost> makeHost(const TargetName& target = {});
    /// Runs a script with such a host; the error's message, empty for none.
    static QString run(const QString& source, const TargetName& target = {});

    static void setLayout(const QString& layout, const QStringList& more = {});
    /// The key window's program under another name.
    QString programNamed(const QString& name);
    /// Blocks until it holds, asking again after every change of a window or the root.
    bool waitUntil(xcb_window_t window, const std::function<bool()>& holds);
    void minimise(xcb_window_t window);
    [[nodiscard]] bool isKeyDown(xcb_keycode_t key) const;
    [[nodiscard]] std::uint8_t lockedModifiers() const;
    void lockModifiers(std::uint8_t mask);
    void setGroup(std::uint8_t group);
    /// The symbols of every key, as other programs see them.
    [[nodiscard]] std::vector<xcb_keysym_t> keyboardMapping() const;

    [[nodiscard]] x11::Connection& x() { return *connection_; }
    [[nodiscard]] x11::Windows& windows() { return *windows_; }

private:
    QTemporaryDir folder_;
    std::unique_ptr<x11::Connection> connection_;
    std::unique_ptr<x11::Windows> windows_;
};

/// One session, opened and told whom to send to.
struct OpenTarget {
    std::unique_ptr<KeySession> session;
    KeyTarget target;
};
[[nodiscard]] OpenTarget openTarget(const TargetName& name = {.text = QStringLiteral("Logic Pro")});
[[nodiscard]] KeySession::Deadline soon();

} // namespace brivandel::testing
