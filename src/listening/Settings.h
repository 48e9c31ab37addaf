#pragma once

#include "commands/CustomCommand.h"
#include "commands/TriggerOverrides.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace brivandel {

class DefaultsStore;

/// The stored settings, typed: what is absent, or is of the wrong type where that is looked at, reads as its
/// default. Writing stores at once. Main thread.
class Settings {
public:
    explicit Settings(DefaultsStore& store);

    /// "hey logic" when absent, or no text and no number.
    [[nodiscard]] QString wakeWord() const;
    void setWakeWord(const QString& wakeWord);

    /// None when absent: true is then seeded, so that a program of another version finds the choice made.
    /// What is there and no truth value is false, and stays.
    [[nodiscard]] std::optional<bool> useWakeWord() const;
    void setUseWakeWord(bool use);
    /// None when absent, as above.
    [[nodiscard]] std::optional<bool> audioFeedback() const;
    void setAudioFeedback(bool enabled);

    /// The UID of the chosen input; none for the system's default.
    [[nodiscard]] std::optional<QString> audioDevice() const;
    void setAudioDevice(const std::optional<QString>& uid);

    /// 30 unless an integer is stored.
    [[nodiscard]] std::int64_t idleTimeoutMinutes() const;
    void setIdleTimeoutMinutes(std::int64_t minutes);
    /// True unless a Boolean is stored.
    [[nodiscard]] bool autoDisableOnIdle() const;
    void setAutoDisableOnIdle(bool disable);
    /// True unless a Boolean is stored.
    [[nodiscard]] bool idleReminderEnabled() const;
    void setIdleReminderEnabled(bool enabled);

    /// None when absent or not in the stored form; what is stored then stays until something else is saved.
    [[nodiscard]] std::optional<CustomCommandList> customCommands() const;
    void setCustomCommands(const CustomCommandList& commands);
    [[nodiscard]] std::optional<TriggerOverrides> triggerOverrides() const;
    void setTriggerOverrides(const TriggerOverrides& overrides);

private:
    DefaultsStore& store_;
};

} // namespace brivandel
