#pragma once

#include <QString>

namespace brivandel {

/// A note to the user outside the program's own windows.
struct Notification {
    QString identifier;
    QString title;
    QString body;
};

class Notifier {
public:
    virtual ~Notifier() = default;
    /// Shows it at once with the default sound; whether it can be shown is not reported. Main thread, returns
    /// at once.
    virtual void deliver(const Notification& notification) = 0;
};

} // namespace brivandel
