#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace brivandel {

/// While it lives, Ctrl-C and a request to terminate come as a call on the main thread, once. One at a time.
class Interruption final : public QObject {
public:
    explicit Interruption(std::function<void()> interrupted);
    ~Interruption() override;
    Q_DISABLE_COPY_MOVE(Interruption)

private:
    QSocketNotifier* notifier_;
};

} // namespace brivandel
