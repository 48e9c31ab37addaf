#pragma once

#include "platform/Notifier.h"

namespace brivandel {

/// Sends to the desktop's notification service (org.freedesktop.Notifications) over the session bus. It waits
/// for no answer, so a service that hangs holds up nobody; the bus starts a service that is not running yet.
class DBusNotifier final : public Notifier {
public:
    void deliver(const Notification& notification) override;
};

} // namespace brivandel
