#pragma once

#include "platform/linux/applescript/ScriptTime.h"
#include "platform/linux/keys/KeySender.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace brivandel::testing {

/// Time that passes only where a script waits, or where a test lets it. Any thread.
class VirtualTime final : public script::ScriptTime {
public:
    /// waited: called at the end of each wait.
    explicit VirtualTime(std::function<void()> waited = {}) : waited_(std::move(waited)) {}

    [[nodiscard]] TimePoint now() const override {
        const std::scoped_lock lock(mutex_);
        return now_;
    }
    void waitUntil(TimePoint time) override {
        {
            const std::scoped_lock lock(mutex_);
            now_ = std::max(now_, time);
        }
        if (waited_) {
            waited_();
        }
    }
    void interrupt() override {}
    void advance(std::chrono::milliseconds duration) {
        const std::scoped_lock lock(mutex_);
        now_ += duration;
    }

private:
    std::function<void()> waited_;
    mutable std::mutex mutex_;
    TimePoint now_{std::chrono::hours{1}};
};

/// A desktop with programs but no display: what is asked of it is written down. Any thread.
class FakeDesktop {
public:
    /// Programs that run, under the names they are found by.
    QStringList running{QStringLiteral("Logic Pro")};
    /// The title of a modal dialog that is open.
    std::optional<QString> dialog;
    /// Makes openSession fail.
    std::optional<KeyFailure> display;
    /// Asked before each raise or key, with how it will be written down; a failure is returned in its stead.
    std::function<std::optional<KeyFailure>(const QString& action)> before;
    std::function<void()> opened;
    /// Called when a script has waited.
    std::function<void()> waited;

    [[nodiscard]] QStringList actions() const {
        const std::scoped_lock lock(mutex_);
        return actions_;
    }
    /// Only the keys, in the order in which they were pressed.
    [[nodiscard]] QStringList keys() const { return actions().filter(QStringLiteral("key ")); }
    [[nodiscard]] std::vector<TargetName> lookedFor() const {
        const std::scoped_lock lock(mutex_);
        return lookedFor_;
    }

    std::optional<KeyFailure> act(const QString& action) {
        if (before) {
            if (auto failure = before(action)) {
                return failure;
            }
        }
        const std::scoped_lock lock(mutex_);
        actions_ += action;
        return std::nullopt;
    }
    void noteSearch(const TargetName& name) {
        const std::scoped_lock lock(mutex_);
        lookedFor_.push_back(name);
    }

private:
    mutable std::mutex mutex_;
    QStringList actions_;
    std::vector<TargetName> lookedFor_;
};

inline QString describe(KeyModifiers modifiers) {
    QString text;
    text += modifiers.testFlag(KeyModifier::Command) ? QStringLiteral("command+") : QString();
    text += modifiers.testFlag(KeyModifier::Shift) ? QStringLiteral("shift+") : QString();
    text += modifiers.testFlag(KeyModifier::Option) ? QStringLiteral("option+") : QString();
    text += modifiers.testFlag(KeyModifier::Control) ? QStringLiteral("control+") : QString();
    return text;
}

/// "raise Logic Pro", "key command+'z' to Logic Pro", "key 49 to Logic Pro".
class FakeKeySession final : public KeySession {
public:
    explicit FakeKeySession(FakeDesktop& desktop) : desktop_(desktop) {}

    std::variant<KeyTarget, KeyFailure> find(const TargetName& name, Deadline) override {
        desktop_.noteSearch(name);
        const qsizetype index = desktop_.running.indexOf(name.text);
        if (index < 0) {
            return KeyFailure{KeyFailure::Kind::NotRunning, {}};
        }
        return KeyTarget{.id = static_cast<std::uint32_t>(index)};
    }
    std::optional<KeyFailure> raise(KeyTarget target, Deadline) override {
        return desktop_.act(QStringLiteral("raise ") + name(target));
    }
    std::optional<QString> openDialog(KeyTarget /*target*/, Deadline) override { return desktop_.dialog; }
    std::optional<KeyFailure> pressKey(KeyTarget target, std::uint16_t virtualKeyCode, KeyModifiers modifiers,
                                       Deadline) override {
        return desktop_.act(
            QStringLiteral("key %1%2 to %3").arg(describe(modifiers)).arg(virtualKeyCode).arg(name(target)));
    }
    std::optional<KeyFailure> typeText(KeyTarget target, const QString& text, KeyModifiers modifiers,
                                       Deadline) override {
        for (const QChar character : text) {
            auto failure = desktop_.act(
                QStringLiteral("key %1'%2' to %3").arg(describe(modifiers), character, name(target)));
            if (failure) {
                return failure;
            }
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] QString name(KeyTarget target) const { return desktop_.running.at(target.id); }
    FakeDesktop& desktop_;
};

class FakeKeySender final : public KeySender {
public:
    explicit FakeKeySender(FakeDesktop& desktop) : desktop_(desktop) {}

    std::variant<std::unique_ptr<KeySession>, KeyFailure> openSession(KeySession::Deadline) override {
        if (desktop_.opened) {
            desktop_.opened();
        }
        if (desktop_.display) {
            return *desktop_.display;
        }
        return std::make_unique<FakeKeySession>(desktop_);
    }

private:
    FakeDesktop& desktop_;
};

} // namespace brivandel::testing
