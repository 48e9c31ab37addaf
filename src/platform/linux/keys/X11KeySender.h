#pragma once

#include "platform/linux/keys/KeySender.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

namespace brivandel {

/// What there is to send keys to, for a person who wants to know why nothing happens.
struct KeySenderReport {
    struct Target {
        QString program;
        QString windowTitle;
        qint64 pid = 0; ///< 0 when it is not known
    };

    /// Why no key can be sent at all, as a sentence; empty when keys can be sent.
    QString problem;
    /// Empty when there is none: then windows are raised without one.
    QString windowManager;
    /// None when no program of that name has a window.
    std::optional<Target> target;
};

/// Sends keys through the X display's XTEST extension. Every session has a connection of its own: it lasts
/// for one script, sees the layout of that moment, and outlives no server.
class X11KeySender final : public KeySender {
public:
    /// display: as in the environment's DISPLAY, which an empty text stands for.
    explicit X11KeySender(QByteArray display = {});

    [[nodiscard]] std::variant<std::unique_ptr<KeySession>, KeyFailure>
    openSession(KeySession::Deadline deadline) override;

    /// Looks and sends nothing; takes at most that long. Any thread.
    [[nodiscard]] KeySenderReport report(const TargetName& target,
                                         std::chrono::milliseconds patience = std::chrono::seconds{2}) const;

private:
    QByteArray display_;
};

} // namespace brivandel
