#pragma once

#include <QString>

#include <functional>
#include <utility>

namespace brivandel {

/// How an engine whose capture has ended by itself tells it to the recognition that was listening: the
/// session that began last ends with the reason as its error, and whoever listens begins anew as after any
/// other. Main thread.
class CaptureEnd {
public:
    using Listener = std::function<void(const QString& reason)>;

    /// Takes the place of the listener before.
    void listen(Listener listener) { listener_ = std::move(listener); }

    void tell(const QString& reason) const {
        if (const auto listener = listener_) { // it may begin the next session
            listener(reason);
        }
    }

private:
    Listener listener_;
};

} // namespace brivandel
