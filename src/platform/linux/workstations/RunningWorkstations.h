#pragma once

#include "platform/linux/keys/KeySender.h"

#include <chrono>
#include <memory>
#include <optional>

namespace brivandel {

/// Says which programs have a window on a display, for a person who looks; scripts ask in a session of
/// their own. One thread at a time.
class RunningWorkstations {
public:
    /// patience: how long it may take in all, from its making.
    explicit RunningWorkstations(KeySender& display,
                                 std::chrono::milliseconds patience = std::chrono::seconds{2});

    /// Why the display cannot be asked, as a sentence; empty when it can. If it cannot, nothing is known of
    /// any program, and none is found.
    [[nodiscard]] const QString& problem() const { return problem_; }

    std::optional<KeyTarget> operator()(const TargetName& name) const;

private:
    KeySession::Deadline deadline_;
    /// Null: there is no display. Shared, since a std::function wants to copy it.
    std::shared_ptr<KeySession> session_;
    QString problem_;
};

} // namespace brivandel
